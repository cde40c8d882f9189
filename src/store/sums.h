#pragma once

// What a table holds as one number, the same on every engine: whoever copies a database from one engine to another
// proves with it that nothing was lost or changed.

#include "store/database.h"

#include <map>

namespace store {

struct TableSum {
    qint64 rows = 0;
    QByteArray checksum; ///< over all fields of all rows, in the order of their keys

    bool operator==(const TableSum&) const = default;
};

/// Of each table of the kind that the database has. Where a number is kept, empty is as good as Null. Who compares two
/// databases sees to it that nobody writes meanwhile.
std::map<QString, TableSum> table_sums(Database& database, Kind kind);

} // namespace store
