#pragma once

// Report 1, "社員一覧表": the employees and their work types.

#include "reports/tallies/report.h"

namespace reports {

/// Empties the sheet and the headings and lays the report out: heading row and one empty row.
void 書式設定_社員一覧(Report& report);

/// One row an employee of the range in `systancd`, all where both ends are empty, in the order that this PC's employee
/// lists have. Employees without a number are left out; one without a work type has an empty cell.
Outcome 集計_社員一覧表(Report& report, Work& work);

} // namespace reports
