#pragma once

// Report 3, "勤務タイプ一覧表": the bands of all work types with their break rules.

#include "reports/tallies/report.h"

namespace reports {

/// Empties the sheet and the headings and lays the report out: heading row and one empty row.
void 書式設定_勤務タイプ一覧(Report& report);

/// One row a band, by type, weekday and band number. A band whose work category is gone is left out.
Outcome 集計_勤務タイプ一覧表(Report& report, Work& work);

} // namespace reports
