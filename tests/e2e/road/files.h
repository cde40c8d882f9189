#pragma once

// The files of a company: how they come to be, the rows that wait in the exchange file, the tables behind the screens,
// and what is put out.

#include "base/settings.h"
#include "store/database.h"

#include <QStringList>

namespace e2e {

/// Runs rovena-install of this build; throws a RoadError with what it said if it fails.
void install(const QStringList& arguments);

struct DataFile {
    QString path;
    store::Kind kind;
};

/// "rovdata", "comsys", "allsystem", "losys", or "exchange" for exchange file 01.
DataFile file_called(const QString& name, const base::Settings& settings);

/// Rows of exchange file 01 that the manager hasn't taken yet.
qint64 rows_waiting(const base::Settings& settings);

/// Waits until the exchange manager has taken every row and ended; throws a RoadError if it doesn't.
void wait_for_manager(const base::Settings& settings);

/// The rows of the four attendance tables and the number of rows of every table, a line each.
QStringList dump_tables(const base::Settings& settings);

/// Throws a RoadError unless every text stands in the whole, blanks apart.
void demand_texts(const QString& whole, const QStringList& texts);

/// Throws a RoadError unless it is a PDF file that has that many pages or more with the texts in them. The texts are
/// read only where the system has pdftotext.
void demand_pdf(const QString& path, int pages, const QStringList& texts);

} // namespace e2e
