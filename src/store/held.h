#pragma once

// A database that stands still. As long as a Held lives, no other program writes to the file, on this PC or another;
// they may read. From it the copies of a backup are made, and the compacted copy goes back into the file with nobody's
// write fallen between. Copies are proved by opening them and by comparing them with their source.

#include "store/database.h"

#include <map>
#include <utility>

namespace store {

class Holding;

/// What schemas of a server are called, and what they are to be called.
using NewNames = QList<std::pair<QString, QString>>;

/// How many rows each table holds; the definitions count as a table of their own (`sqlite_master`).
using RowCounts = std::map<QString, qint64>;
RowCounts row_counts(Database& database);

/// Reads every page and index of the database and compares the rows with those expected: Code::Damaged if something is
/// wrong, and whatever opening throws. Returns the database.
Database open_checked(const QString& path, Kind kind);
void check_copy(const QString& path, Kind kind, const RowCounts& expected);

class Held {
public:
    /// Waits at most `patience` for the end of another program's write, then Code::Busy; throws what opening throws.
    Held(const QString& path, Kind kind, std::chrono::milliseconds patience = default_patience);
    Held(Held&&) noexcept;
    Held& operator=(Held&&) = delete;
    ~Held();

    const QString& path() const { return m_path; }
    const RowCounts& rows() const { return m_rows; }

    /// How many pages, of 4,096 bytes, a compacted copy would do without. A server looks after that itself: none.
    qint64 spare_pages();

    /// Whether it is a file, which wants its compacted contents back now and then; else it lies on a server.
    bool is_file() const;

    /// Copies everything into `target`, an empty file or none, compacted; key, kind and version are the same. The
    /// target isn't flushed and is nothing to look at if this throws: an Error whose file() is the target where that
    /// can't be written. Of a database on a server too this makes a file.
    void compact_into(const QString& target);

    /// The same as the file stands, byte for byte; what was in the target goes.
    void copy_into(const QString& target);

    /// Takes the whole contents from the database at `copy`, in one transaction of the engine: whoever opens the
    /// database after a kill or a power failure finds all of the old or all of the new. Code::Busy if readers don't end
    /// within the patience; the database stands as it was then.
    void take_over(const QString& copy);

    /// Gives schemas of the server on which this database lies other names, all of them or none. It isn't held any
    /// longer then, and nothing else of it is to be asked. Code::Misuse for a file.
    void rename_schemas(const NewNames& names);

private:
    QString m_path;
    std::unique_ptr<Holding> m_holding;
    RowCounts m_rows;
};

} // namespace store
