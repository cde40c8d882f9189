#pragma once

// Printing a finished sheet: the print procedure of each report. What is printed is the sheet as it stands. Throws
// store::Error where this PC's settings can't be read; nothing is put out then.

#include "reports/printing/rovena_print.h"
#include "reports/tallies/report.h"

namespace reports {

/// Prints the report by the procedure of its number on the printer of this PC. A printer that isn't there is told in a
/// message box and nothing is printed. A number other than 1 to 6 prints nothing and gives Printed::Yes.
Printed print(const Report& report, frame::Session& session, PrintShop& shop);

/// What is said where there is nothing to print.
inline constexpr QStringView no_pages = u"印刷するページがありません。";

/// Where the file lies that the shop has put out, for the line beside the buttons. It is said once; empty if there is
/// none.
QString file_line(PrintShop& shop);

/// The layout of the report's pages; that of the lists for a number other than 1 to 6.
Layout layout_of(const Report& report);

/// The procedures: the lists (reports 1, 2, 3 and 6), report 4 and report 5.
Printed 帳票印刷_一覧(const Report& report, const PrintTarget& target);
Printed 帳票印刷_出勤明細(const Report& report, const PrintTarget& target);
Printed 帳票印刷_勤務時間(const Report& report, const PrintTarget& target);

/// Prints the error list from its own grid; Printed::Nothing without messages.
Printed 帳票印刷_エラーリスト(const base::Sheet& hyou, const PrintTarget& target);

} // namespace reports
