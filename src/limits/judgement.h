#pragma once

// How an employee's figures stand against the limits: one pure function from figures to judgements. Of each limit it
// tells the figure, the limit and how much of it is used up.

#include "limits/figures.h"

namespace limits {

enum class Measure {
    Month,       ///< overtime of the month
    Year,        ///< overtime of the year up to the month
    MonthsAbove, ///< months of the year whose overtime lies above the month's limit; with a special clause alone
    AllMonth,    ///< overtime and work on holidays of the month
    Average,     ///< the same a month, the worst mean of the last 2 to 6 months
    Leave,       ///< leave of the year up to the month
    Breaks,      ///< days of the month whose break is too short
};
inline constexpr int measure_count = 7;

enum class Level { Fine, Near, Over };

struct Judged {
    Measure measure;
    Level level = Level::Fine;
    qint64 figure = 0; ///< minutes, months, half days or days
    qint64 limit = 0;  ///< likewise
    int share = 0;     ///< of the limit, in thousandths; of the leave's year, until enough is taken
    int months = 0;    ///< of the mean
    friend bool operator==(const Judged&, const Judged&) = default;

    /// How much of what is allowed, or due, there is, in thousandths of it.
    int reached() const;
};

struct ShortBreak {
    WorkedDay day;
    base::minutes needed;
};

struct Judgement {
    Level level = Level::Fine; ///< the worst
    QList<Judged> judged;      ///< in the order of the measures; those that aren't looked at are missing
    QList<ShortBreak> breaks;  ///< the days behind Measure::Breaks
    int nearest = -1;          ///< in `judged`: the worst, and of those the one with the largest share; -1 for none
    const Judged* of(Measure measure) const;
};

Judgement judge(const Figures& figures, const Rules& rules, const Span& span);

/// The break that a day of so much work needs; none up to the first bound itself: exactly 6:00 needs none, 8:00 the
/// short one.
base::minutes needed_break(base::minutes work, const Rules& rules);

/// Whether `a` stands before `b` where what is worst and nearest comes first.
bool stands_before(const Judgement& a, const Judgement& b);

} // namespace limits
