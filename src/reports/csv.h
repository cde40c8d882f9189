#pragma once

// A report's sheet as a text file, its five headings on top: see common/sheet_csv.h.

#include "common/sheet_csv.h"
#include "reports/tallies/report.h"

namespace reports {

using common::Written;

inline Written write_csv(const Report& report, const QString& path) {
    return common::write_csv(report.midasi, report.hyou, path);
}

/// What the file is called unless the person calls it otherwise: the report, whose and when; for a report without a
/// time of its own the month of today. "出勤明細一覧表_2026年 10月_1005佐藤　翔太".
QString csv_name(const Report& report, QDate today);

/// Asks where to and writes the report there over whatever stands. `jyoulab` is given the status texts. A file that
/// can't be written is told in a message box, and so are characters that became "?". Cancelled: nothing happens.
void 帳票CSV出力(const Report& report, frame::Session& session, const std::function<void(const QString&)>& jyoulab);

} // namespace reports
