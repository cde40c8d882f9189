#pragma once

// Small readings of the month sheet that several rules share.

#include "base/numbers.h"
#include "entry/sheet.h"

namespace entry {

/// The number of a column's work category, from the hidden row.
inline int category_of(const MonthSheet& sheet, int column) {
    return base::int_val(sheet.hyou(row::category_number, column));
}

/// The column of a work category; nothing if the sheet has none.
std::optional<int> category_column(const MonthSheet& sheet, qint64 category);

/// The weekday of a day row, 0 Sunday to 6 Saturday, from the character in its column 1.
int weekday_of(const MonthSheet& sheet, int r);

/// Whether a sheet row stands for a day of the month: not so the total, and the rows past the month's end.
bool is_day(const MonthSheet& sheet, int r);

/// The figure of a count cell: typed figures may carry group commas, and a negative one a sign.
qint64 count_of(const QString& cell);

} // namespace entry
