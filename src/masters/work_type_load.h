#pragma once

// A work type from the store into the week buffer.

#include "masters/combo_box.h"
#include "masters/week_buffer.h"
#include "store/database.h"

namespace masters {

/// The names behind the numbers of a combo's items.
class NameTable {
public:
    explicit NameTable(const ComboBox& combo);

    /// The name of the first item with this number; empty if there is none. The search ends at an item without a name,
    /// so that what stands behind it is not found.
    QString name_of(qint64 number) const;

private:
    struct Entry {
        qint64 number;
        QString name;
    };
    QList<Entry> m_entries;
};

/// A row of the type for which the editor has no place, written by another hand: a day or band that it doesn't have, or
/// the same as that of a later row.
struct ForeignRow {
    qint64 weekday;
    qint64 band;
};

/// Clears the buffer and fills it with the rows of the type; a category or mode without a name keeps its number.
/// Gives back the rows that have no place and are not shown.
QList<ForeignRow> load_work_type(
    store::Database& rovdata, qint64 number, const NameTable& categories, const NameTable& modes, WeekBuffer& week);

} // namespace masters
