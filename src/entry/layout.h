#pragma once

// The empty sheets: rows, columns, headings, sizes and colours before an employee's month is read into them.

#include "base/month_look.h"
#include "entry/sheet.h"

namespace entry {

inline constexpr base::Rgb leave_back{255, 200, 200};
inline constexpr base::Rgb holiday_work_back{200, 200, 255};
inline constexpr base::Rgb white{255, 255, 255};

inline constexpr int category_width = 1000;
inline constexpr int remark_width = 900; ///< a page may give the remarks more

/// Resets `hyou` and the hidden record to the empty month: its days, weekdays and total row. Category columns go.
void 書式設定(MonthSheet& sheet, const base::CompanyMonth& month);

/// Resets the count strip to its two fixed sums and eight empty columns.
void 書式設定_日(MonthSheet& sheet);

/// Resets the employee list to its headings.
void 書式設定_社員(base::Sheet& hyou_syain);

/// Makes a column of the count strip look like the others.
void format_strip_column(base::Sheet& hyou_day, int column);

} // namespace entry
