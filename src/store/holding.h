#pragma once

// How each engine lets a database stand still; as `Held` tells.

#include "store/engine.h"
#include "store/held.h"

namespace store {

class Holding {
public:
    Holding() = default;
    Holding(const Holding&) = delete;
    Holding& operator=(const Holding&) = delete;
    virtual ~Holding() = default;

    virtual RowCounts rows() = 0;
    virtual qint64 spare_pages() = 0;
    virtual bool is_file() const = 0;
    virtual void compact_into(const QString& target) = 0;
    virtual void copy_into(const QString& target) = 0;
    virtual void take_over(const QString& copy) = 0;
    virtual void rename_schemas(const NewNames& names) = 0;
};

/// Each holds the open database from here on; Code::Replaced where a file gave way to another.
std::unique_ptr<Holding> hold_file(Database database, Kind kind);
std::unique_ptr<Holding> hold_on_server(Database database, Kind kind);

/// The first number of the first row; 0 if there is none.
qint64 number_of(Database& database, const QString& sql);

/// Copies the rows of all tables, with their numbers, field by field of the same name. Fields that the target lacks are
/// added to it. Both databases are in a transaction, the target's tables empty.
void copy_rows(Database& from, Database& to, Kind kind);

} // namespace store
