#pragma once

// An encrypted file: the library's handle of it, and how its results become errors.

#include "store/engine.h"
#include "store/schema.h"

struct sqlite3;
struct sqlite3_file;

namespace store {

class FileEngine final : public Engine {
public:
    sqlite3* handle = nullptr;
    std::chrono::steady_clock::time_point waiting_since; ///< when the statement in hand met another's lock

    using Engine::Engine;
    ~FileEngine() override;

    /// The engine of a database that is known to be a file; Code::Misuse if it is none.
    static FileEngine& of(Engine& engine);

    /// Opens the engine on the path with SQLite's open flags.
    void open(int flags);

    /// Hands over the password and the page size; nothing is read yet.
    void unlock(const QByteArray& key);

    std::unique_ptr<EngineStatement> prepare(std::string_view sql) override;
    void exec(std::string_view sql) override;
    int changes() const override;
    QList<Column> columns_of(const QString& table) override;
    QStringList names() override;
    QString definition_of(Kind kind) const override { return file_definition_of(kind); }
    void expect_much() override;
    QByteArray state() const override;
    void number_rows_behind(const QString&, qint64) override {} // it numbers them behind the last that there is
    void begin(Transaction::Lock lock) override;
    void commit() override;
    void roll_back() noexcept override;

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

/// A new file of the kind, or an empty one made into it, without a journal and without waiting for the disk: nothing of
/// it matters until it has its name.
std::unique_ptr<FileEngine> define_file(const QString& path, Kind kind);

/// The first bytes of a file that may be a keyed database; Code::Empty or Code::NotADatabase if it can't be one.
QByteArray salt_of(const FileEngine& engine);

} // namespace store
