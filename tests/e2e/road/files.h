#pragma once

// The files of a company: how they come to be, the rows that wait in the exchange file, and the tables behind the
// screens.

#include "base/settings.h"
#include "store/database.h"

#include <QString>

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

} // namespace e2e
