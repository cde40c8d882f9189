#pragma once

// Why a day has its figures, as a value to be shown: the bands of its weekday with what the stay has of each, the rules
// that gave the break, and the sums that end in the figures of its cells. It is made from the value that the
// calculation writes into the cells: what is explained is what was counted.

#include "entry/day_figures.h"

namespace entry {

/// A band of the weekday, also one that gives the day nothing.
struct WhyBand {
    QString name; ///< of its category
    base::minutes start{0};
    base::minutes end{0};    ///< of 24:00 and more on the next day
    base::minutes inside{0}; ///< of the stay
    QString remark{};        ///< why its minutes don't count; empty where they do
    int place = -1;          ///< of the category among the columns of `hyou`; below 0 if it has none
};

struct WhyTerm {
    QString name;
    base::minutes time{0}; ///< what is taken off is below 0
};

/// One line of arithmetic that ends in the figure of a cell.
struct WhySum {
    QString name;
    int column = 0; ///< of `hyou`
    QList<WhyTerm> terms;
    QString figure; ///< as the calculation would write it; empty for none
    QString cell;   ///< as it stands in the cell
};

struct Why {
    Stay stay;
    QList<WhyBand> bands;     ///< in order of their starts
    QStringList breaks;       ///< "普通 8:00以上で 1:00", a line a rule that was reached
    base::minutes outside{0}; ///< of the stay in no band
    QList<WhySum> sums;       ///< each category with a figure, the break, the work time

    bool to_be_calculated = false; ///< the figures aren't in the cells yet
};

/// Nothing for a row that is no day, or has no clock times.
std::optional<Why> why_of(const MonthSheet& sheet, int r);

/// "普通 9:00 − 休憩 1:00 ＝ 8:00", and "普通 9:00" where there is nothing to add up.
/// What the cell holds beside it is told: "普通 9:00（表は 8:30）".
QString text_of(const WhySum& sum);

} // namespace entry
