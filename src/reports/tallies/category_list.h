#pragma once

// Report 2, "勤務種類一覧表": the work categories in the order of their system numbers.

#include "reports/tallies/report.h"

namespace reports {

/// Empties the sheet and the headings and lays the report out: heading row and one empty row.
void 書式設定_勤務種類一覧(Report& report);

/// One row a category. Without any the heading row alone stands.
Outcome 集計_勤務種類一覧表(Report& report, Work& work);

} // namespace reports
