#pragma once

// What the reports leave behind, looked at as another program would: PDF files and CSV files. A line each for what
// isn't as it must be; empty if all is well.

#include "base/sheet.h"

#include <QStringList>

namespace e2e {

/// A PDF file has that many pages or more, and every text stands in it, blanks apart. The texts are read only where the
/// system has pdftotext.
QStringList faults_of_pdf(const QString& path, int pages, const QStringList& texts);

/// A report's CSV file is text of code page 932: the title first of five headings, then a line for each row of the
/// sheet, with the columns that are in sight.
QStringList faults_of_csv(const QString& path, const QString& title, const base::Sheet& hyou);

} // namespace e2e
