#pragma once

// A report's sheet as a text file: the five headings a line each, then every row of the sheet, hidden ones too, with
// the cells of the visible columns joined by ",". No quoting; a "," inside a cell is left out. Code page 932, CR LF.

#include "reports/tallies/report.h"

namespace reports {

enum class Written { Whole, Replaced, Failed };

/// Writes the report over whatever stands at the path. Replaced: a character that the code page lacks became "?".
/// Failed: the system refused; what is written by then stays.
Written write_csv(const Report& report, const QString& path);

/// The headings and cells with such characters, in words.
QStringList replaced_places(const Report& report);

/// Asks where to and writes the report there over whatever stands. `jyoulab` is given the status texts. A file that
/// can't be written is told in a message box, and so are characters that became "?". Cancelled: nothing happens.
void 帳票CSV出力(const Report& report, frame::Session& session, const std::function<void(const QString&)>& jyoulab);

} // namespace reports
