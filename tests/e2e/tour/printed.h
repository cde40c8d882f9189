#pragma once

// What the reports leave behind, looked at as another program would: PDF files and CSV files.

#include "reports/tallies/report.h"

#include <QStringList>

namespace tour {

/// What of a PDF file isn't as it must be: it is one, it has that many pages or more, and every text stands in it,
/// blanks apart. The texts are read only where the system has pdftotext. A line each, empty if all is well.
QStringList faults_of_pdf(const QString& path, int pages, const QStringList& texts);

/// What of a report's CSV file isn't as it must be: text of code page 932 with the title, the line of headings and a
/// line for each row of the sheet behind the five headings. A line each, empty if all is well.
QStringList faults_of_csv(const QString& path, const reports::Report& report);

} // namespace tour
