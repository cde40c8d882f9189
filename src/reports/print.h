#pragma once

// Printing a finished sheet: the print procedure of each report. What is printed is the sheet as it stands.

#include "reports/print_surface.h"
#include "reports/report.h"

namespace reports {

enum class Printed { Yes, NoPrinter };

/// Prints the report by the procedure of its number on the printer of this PC. A printer that isn't there is told in a
/// message box and nothing is printed. A number other than 1 to 6 prints nothing.
Printed print(const Report& report, frame::Session& session, PrintShop& shop);

} // namespace reports
