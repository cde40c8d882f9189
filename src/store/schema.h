#pragma once

// The tables of every database as constant data: what the files hold stands here and nowhere else.

#include "store/database.h"

#include <span>

namespace store {

enum class FieldType { Number, Text };

struct Field {
    QStringView name;
    FieldType type;
};

struct Table {
    QStringView name;
    std::span<const Field> fields;
};

/// An index that a query of the program needs: name, table, and the columns as SQL writes them.
struct Index {
    QStringView name;
    QStringView table;
    QStringView columns;
};

/// The index by whose columns the table's rows are facts, each of one employee and day or month: no column of it is
/// ever Null. Nothing for a table of other rows.
const Index* key_of_facts(Kind kind, QStringView table);

/// Whether the field, by its name, is of such an index, or numbers the rows.
bool never_null(QStringView field);

std::span<const Table> tables_of(Kind kind); ///< empty for Kind::Any
std::span<const Index> indexes_of(Kind kind);

/// The statements that turn an empty file into a database of the kind, its marks included; what is there stays.
QString file_definition_of(Kind kind);

/// The same for a schema of a server, in which rows carry their numbers in a field `rowid` behind all others. Facts of
/// employees are parted by him into so many partitions; 0 parts nothing.
QString server_definition_of(Kind kind, int partitions);

/// Makes the tables and indexes that the database lacks and marks it as of this program's version; leaves what is
/// there. Writes nothing where nothing is missing.
void add_missing_tables(Database& database, Kind kind);

/// The stamp that a file of this program version carries as user_version.
inline constexpr int schema_version = 1;

/// The 32-bit application id that tells the kinds of file apart; 0 for Kind::Any.
int application_id(Kind kind);

} // namespace store
