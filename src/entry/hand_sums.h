#pragma once

// The counts of the strip and the sums of the total row that a person typed over, of the month on the sheet: those that
// are unsaved, and those that were posted and aren't in the tables yet. A tally takes them away, as it does on the
// sheet.

#include "entry/draft.h"

#include <QSet>

namespace entry {

class HandSums {
public:
    using Texts = QMap<QString, QString>; ///< by tag, as in a draft

    /// A month was read: nothing of it is typed.
    void begin(const MonthSheet& sheet);
    /// Its draft was laid over it.
    void take_up(const Draft& draft);
    /// What stands in the sums now wasn't typed since.
    void stand(const MonthSheet& sheet);

    /// A sum that changed to what the days don't give was typed, or one that did so while they stayed; what isn't shown
    /// any more was taken away. `as_read` is the month as it was read, or as it was posted last.
    void look(const MonthSheet& sheet, const MonthSheet& as_read);
    /// A count was typed into this column of the strip.
    void count_typed(const MonthSheet& sheet, int column);
    /// An earlier state of the sheet stands again, and these were typed then.
    void bring_back(const Texts& typed);

    void posted(const MonthSheet& sheet, const MonthSheet& as_read);
    /// Those that were posted are in the tables.
    void let_posted_go();
    void give_up() { m_typed.clear(); }

    const Texts& typed() const { return m_typed; }
    /// Sets all that a draft holds of counts and sums. Where no day of it is unsaved, from which others would follow,
    /// it also takes those that were typed and stand otherwise than they were read or posted: taken back.
    void put_into(Draft& draft, const MonthSheet& sheet, const MonthSheet& as_read) const;

private:
    void type(const QString& tag, const QString& text);

    Texts m_typed;
    Texts m_posted;
    Texts m_beneath;         ///< as in a draft
    QSet<QString> m_touched; ///< all that were typed since the month was read
    QStringList m_totals;    ///< the total row, as it was looked at last; empty where nobody knows
    QStringList m_of_days;   ///< what the days gave then
};

} // namespace entry
