#pragma once

// What lies below `Database` and `Statement`: an encrypted file, or a database on a server. Both understand the SQL
// that the floors above write, and their results mean the same: numbers and texts turn into one another, texts stand in
// the order of their bytes, Null before all else. Every failure throws store::Error.

#include "store/database.h"

namespace store {

/// One prepared statement, and the row that it stands on; as `Statement` and `Row` tell. A text row by row stands until
/// the next step.
class EngineStatement {
public:
    EngineStatement() = default;
    EngineStatement(const EngineStatement&) = delete;
    EngineStatement& operator=(const EngineStatement&) = delete;
    virtual ~EngineStatement() = default;

    virtual void bind_number(int place, qint64 value) = 0;
    virtual void bind_text(int place, QByteArrayView value) = 0;
    virtual void bind_null(int place) = 0;
    virtual void ask() {}
    virtual bool step() = 0;
    virtual void reset() = 0;

    virtual qint64 number(int column) const = 0;
    virtual QByteArrayView utf8(int column) const = 0;
    virtual bool is_null(int column) const = 0;
    virtual int columns() const = 0;
    virtual QString name(int column) const = 0;
};

/// One open database. Must outlive its statements.
class Engine {
public:
    explicit Engine(QString place) : path(std::move(place)) {}
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;
    virtual ~Engine() = default;

    virtual std::unique_ptr<EngineStatement> prepare(std::string_view sql) = 0;
    virtual void exec(std::string_view sql) = 0;
    virtual int changes() const = 0;
    virtual QList<Column> columns_of(const QString& table) = 0;
    virtual QStringList names() = 0;                    ///< of all tables and indexes
    virtual QString definition_of(Kind kind) const = 0; ///< the statements that make what is missing of the kind
    virtual void expect_much() = 0;
    virtual QByteArray state() const = 0; ///< as `Database` tells
    /// Rows were given numbers up to this one: those that come get numbers behind it.
    virtual void number_rows_behind(const QString& table, qint64 last) = 0;

    /// Code::Replaced if what stands at the path is no longer what was opened.
    virtual void begin(Transaction::Lock lock) = 0;
    virtual void commit() = 0;
    /// Nothing if there is no transaction. Doesn't throw: nothing is left to report.
    virtual void roll_back() noexcept = 0;

    static Engine& of(Database& database) { return *database.m_engine; }
    static Database database(std::unique_ptr<Engine> engine) { return Database(std::move(engine)); }

    QString path; ///< as it was given
    std::chrono::milliseconds patience = default_patience;
};

/// What stands at the path, opened and proved to be of the kind; throws what Database::open() tells.
std::unique_ptr<Engine> open_engine(const QString& path, Kind kind, std::chrono::milliseconds patience);

} // namespace store
