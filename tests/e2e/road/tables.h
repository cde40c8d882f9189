#pragma once

// What stands in the files: the rows that wait in the exchange file, and the tables behind the screens.

#include "base/company_month.h"
#include "base/settings.h"
#include "e2e/road/typed_month.h"
#include "store/database.h"

#include <QString>
#include <string_view>

namespace e2e {

/// The rows of a query on the file at the path, each as its columns parted by tabs.
QStringList rows_of(const QString& path, store::Kind kind, std::string_view sql);

/// Rows of exchange file 01 that the manager hasn't taken yet.
qint64 rows_waiting(const base::Settings& settings);

/// Waits until the exchange manager has taken every row and ended; throws a RoadError if it doesn't.
void wait_for_manager(const base::Settings& settings);

/// What of the typed days isn't in the tables as it was typed: a line each. A clock-out before the clock-in counts as
/// one of the next day.
QStringList missing_in_tables(
    const base::Settings& settings, qint64 employee, const base::CompanyMonth& month, const QList<TypedDay>& days);

/// The employee's month in the four attendance tables and the number of rows of every table, as text.
QString dump_tables(const base::Settings& settings, qint64 employee, const base::CompanyMonth& month);

} // namespace e2e
