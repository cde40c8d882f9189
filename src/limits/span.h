#pragma once

// Which months a look at the limits takes in. Months are company months, told apart by their month keys (yyyymm); a
// look is one as at the end of a month, and everything in it counts back from there.

#include "limits/rules.h"

#include <QDate>

namespace limits {

/// The month key so many months later, or earlier.   month_after(202612, 1) // 202701
int month_after(int month_key, int months);

/// Months of the year up to the month, the month itself included: 1 to 12.
///   months_of_year(202605, 4) // 2: April and May
int months_of_year(int month_key, int first_month);

struct Span {
    static constexpr int months = 12; ///< that are read of the hours, the last 6 of a new year among them

    int month;       ///< yyyymm
    int of_hours;    ///< months of the year of the hours up to this one
    int of_leave;    ///< months of the year of the leave up to this one
    int over{};      ///< of these, that are over
    QDate leave_end; ///< the last day of the year of the leave

    int month_back(int back) const { return month_after(month, -back); }
};

Span span_of(int month_key, const Rules& rules, int month_start_day, QDate today);

} // namespace limits
