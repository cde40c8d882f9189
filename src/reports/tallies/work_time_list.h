#pragma once

// Report 5, "勤務時間一覧表": one row an employee with the sums of a date range, and the totals of all on top. A range
// of one day shows its clock times as well.

#include "reports/tallies/report.h"

namespace reports {

/// Places on the sheet.
namespace times {
inline constexpr int category_row = 1; ///< hidden: system numbers of the categories
inline constexpr int total_row = 2;
inline constexpr int first_employee = 3;
inline constexpr int key_col = 1; ///< hidden: system number of the employee
inline constexpr int break_col = 6;
inline constexpr int remark_col = 8;
inline constexpr int leave_col = 9;
inline constexpr int first_category = 10;
} // namespace times

/// Empties the sheet and the headings and lays the report out: headings, categories, totals and one empty row.
void 書式設定_勤務時間一覧(Report& report);

/// The employees of the range in `systancd` (all where both ends are empty) who have attendance in the date range
/// `ymd`. A date box that is empty leaves its end open; ranges given the wrong way round are turned. One column for
/// each category they worked in, by system number. The months' stored totals don't count. Cancelled: sheet and headings
/// stand as the format makes them.
Outcome 集計_勤務時間一覧表(Report& report, Work& work);

} // namespace reports
