#pragma once

// Where a database lies that isn't a file. At its path stands a small text file that names the server and the schema
// there: so a path means a database whatever holds it, exists or is missing, and is renamed or removed as a file is.
//
//     rovena data server
//     service=rovena            // what libpq connects with; never a password, which belongs into its password file
//     rovdata                   // the schema
//
// Another PC's schema of the same name and kind is taken as it is.
// New databases are made on a server where a folder above them holds a file `data-server`: its first line is the
// connection; a line "partitions 16" behind it parts the facts by employee, a line "apart" gives each database a schema
// of a name of its own, for trees that share one server.

#include "store/database.h"

#include <optional>

namespace store {

struct ServerPlace {
    QByteArray connection; ///< in libpq's own words
    QString schema;
    int partitions = 0; ///< into which facts are parted where the schema is made; it isn't told at the path

    bool operator==(const ServerPlace&) const = default;
};

/// What the bytes of a file name; nothing if they are something else.
std::optional<ServerPlace> server_place(const QByteArray& bytes);
QByteArray bytes_of(const ServerPlace& place);

/// What the file at the path names; nothing if it is something else, or there is none.
std::optional<ServerPlace> place_at(const QString& path);

/// What the schema is called that holds what belongs at the path: as the file, and the posted rows as their table.
QString schema_of(const QString& path);

/// Where a new database belongs that is to be found at the path; nothing if it is to be a file. What belongs to one PC
/// alone, its settings and drafts, is always a file; so are the exchange files into which nobody posts.
std::optional<ServerPlace> place_for_new(const QString& path, Kind kind);

/// Makes an empty database of the kind in a new schema there, and the file that names it at the path, which is free.
void make_on_server(const ServerPlace& place, const QString& path, Kind kind);

/// From now on new databases in or below the folder, which is there, are made on the server, parted into so many
/// partitions; 0 leaves that as it was. std::runtime_error, in Japanese, where the words aren't libpq's or hold a
/// password; the connection itself isn't tried.
void make_on_server_below(const QString& folder, const QString& connection, int partitions);

} // namespace store
