#pragma once

#include <QStringList>

namespace e2e {

/// Throws a RoadError unless every text stands in the whole, blanks apart.
void demand_texts(const QString& whole, const QStringList& texts);

/// Throws a RoadError unless it is a PDF file that has that many pages or more with the texts in them. The texts are
/// read only where the system has pdftotext.
void demand_pdf(const QString& path, int pages, const QStringList& texts);

} // namespace e2e
