#pragma once

// Report 4, "出勤明細一覧表": one employee's company month, a row a day, the month's saved totals in row 32 and the
// saved day counts on a small sheet of their own. Nothing is added up here. With "連続印刷" it goes through a range of
// employees and prints each.

#include "reports/tallies/report.h"

namespace reports {

/// Places on the sheet `hyou` and on the strip `hyou_day`.
namespace detail {
inline constexpr int rows = 34;
inline constexpr int category_row = 33; ///< hidden: system numbers of the categories
inline constexpr int first_category = 8;
inline constexpr int strip_name = 0; ///< row of the kind's name
inline constexpr int strip_key = 1;  ///< hidden: "-1", "-2", "k" or "s" and a kind's number, or a category's number
inline constexpr int strip_count = 2;
} // namespace detail

/// Empties both sheets and the headings and lays them out with the days of the month in `yyyymm`. Where that is no
/// month, the rows stay without days.
void 書式設定_出勤明細一覧(Report& report, const frame::Session& session);

/// Empties the strip: "出勤" and "休暇", then eight empty columns.
void 書式設定_日(base::Sheet& hyou_day);

/// Fills the sheet for the employee at the start of the range in `systancd`; with `print_flg` for each in the range in
/// turn, and prints those with data (with `print_zero` all). Where both ends are empty the range is all employees, and
/// without `print_flg` the last one is shown. System numbers that are no employee's are passed over.
/// Cancelled between two employees: the last one stands, whole and printed.
Outcome 集計_出勤明細表(Report& report, Work& work);

} // namespace reports
