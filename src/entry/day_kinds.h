#pragma once

// The company's day kinds: the list `kyucom` that a day's kind is chosen from, and the kinds that days take by
// themselves.

#include "entry/editing.h"
#include "store/database.h"

namespace entry {

/// The parts of a `kyucom` item (base::day_kind_item), without blanks at their ends.
struct KindParts {
    QString name;
    QString number;
    QString holiday_work;
};
KindParts kind_parts(const QString& item);

/// Fills `kyucom` (first the item that stands for no kind) and the default kinds of the sheet; of several defaults the
/// highest number counts.
void load_day_kinds(MonthSheet& sheet, KindList& kyucom, store::Database& database);

} // namespace entry
