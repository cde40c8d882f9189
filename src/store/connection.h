#pragma once

// What the sources of this directory share: the engine's handle of one open file, and how its results become errors.

#include "store/database.h"

struct sqlite3;
struct sqlite3_file;

namespace store {

struct Connection {
    sqlite3* engine = nullptr;
    QString path;
    std::chrono::milliseconds patience = default_patience;
    std::chrono::steady_clock::time_point waiting_since; ///< when the statement in hand met another's lock

    explicit Connection(QString file) : path(std::move(file)) {}
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection();

    /// Opens the engine on the path with SQLite's open flags.
    void open(int flags);

    /// Hands over the password and the page size; nothing is read yet.
    void unlock(const QByteArray& key);

    /// Runs statements without values; throws what the engine says.
    void exec(std::string_view sql);

    /// The engine's own handle of the file.
    sqlite3_file& file() const;

    /// The file's size; -1 if the system doesn't tell.
    qint64 size() const;

    /// The first bytes of the file as they lie on the disk; empty if there aren't as many.
    QByteArray first(qint64 count) const;

    /// Waits a little for another program's lock; false once the patience is used up. `tries` counts from 0.
    bool wait_for_others(int tries);

    /// Whether another file has taken the place of the one that stands open.
    bool replaced() const;

    /// Throws the engine's last result as an Error.
    [[noreturn]] void fail(std::string_view sql, int result) const;

    /// Throws what a call below the engine says, unless it says that all is well.
    void check(int result) const;
};

/// The first bytes of a file that may be a keyed database; Code::Empty or Code::NotADatabase if it can't be one.
QByteArray salt_of(const Connection& connection);

} // namespace store
