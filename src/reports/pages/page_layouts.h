#pragma once

// From the finished sheet to pages, one layout a kind of report. Only the sheets and the headings are read, never the
// store. `today` is the print date.

#include "reports/pages/page.h"
#include "reports/tallies/report.h"

#include <QDate>

namespace reports {

/// Reports 1, 2, 3 and 6: row below row, 42 on a page. A sheet without body rows gives no page.
Pages list_pages(const Report& report, QDate today);

/// Report 4: the month on one sheet, or on two where more work categories were worked; the day counts below the first.
/// A second sheet holds ten further categories; what goes beyond isn't on paper. There is always a page.
Pages attendance_pages(const Report& report, QDate today);

/// Report 5: 28 rows on a page, the totals among them, and up to three sheets across for each. The totals alone give a
/// page.
Pages work_time_pages(const Report& report, QDate today);

/// The error list, from its own grid: column 0 below the heading row. Without messages there is no page.
Pages error_list_pages(const base::Sheet& hyou);

/// The pages of a report by its number; none for a number other than 1 to 6.
Pages pages_of(const Report& report, QDate today);

} // namespace reports
