#pragma once

// Report 6, "休暇出勤一覧表": the leave kinds and the kinds of work days.

#include "reports/tallies/report.h"

namespace reports {

/// Empties the sheet and the headings and lays the report out: heading row and one empty row.
void 書式設定_休暇出勤(Report& report);

/// One row a kind: working kinds before leave, standard ones before the others, then by system number.
Outcome 集計_休暇出勤一覧表(Report& report, Work& work);

} // namespace reports
