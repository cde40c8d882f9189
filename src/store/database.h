#pragma once

// RAII over the engines. `Database` is one open database, an encrypted file as a rule (engine.h); `Statement` is
// prepared once, bound and stepped; `Row` gives typed access, where Null is 0 or empty text; `Transaction` rolls back
// unless committed. Every failure throws store::Error. Values are always bound: SQL text is never put together from
// data.
//
// Opening is cheap although every procedure opens its own connection: the key is derived once for each salt and process
// and kept in memory. A connection is used by the thread that opened it.

#include "base/system_number.h"
#include "store/error.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <chrono>
#include <concepts>
#include <functional>
#include <memory>
#include <string_view>

namespace store {

/// What a file must be, written into it as the application id. `Any` opens a keyed database of whatever kind.
enum class Kind { Comsys, Allsystem, Rovdata, Losys, Exchange, Drafts, Closings, Any };

/// How long a connection waits for another one's write before Code::Busy.
inline constexpr std::chrono::milliseconds default_patience(5000);

class Statement;
class Engine;
class EngineStatement;

/// A name as SQL writes it, for one that isn't known when the program is written.
QString quoted(QString name);

/// A field as the database knows it, its type in the engine's own word ("integer", "bigint", "text").
struct Column {
    QString name;
    QString type;
};

class Database {
public:
    /// Opens an existing database; never makes one. Undoes what a killed writer left half done, then proves the key
    /// with a read. Code::Missing, NoAccess, Empty, NotADatabase or WrongKey for a file that isn't one of ours, and
    /// OtherKind or Newer unless any kind will do; Away, Refused or Older for one on a server.
    static Database open(const QString& path, Kind kind, std::chrono::milliseconds patience = default_patience);

    /// Makes a new, keyed database of the kind, with that kind's tables and indexes, and opens it.
    /// A file that exists stands as it is and throws Code::Exists; the folder has to be there. The database is there
    /// whole or not at all, with the rows that `fill` puts into it; what `fill` throws goes through. A journal that
    /// waits for the file is put away first (put_away_journal).
    static Database create(const QString& path, Kind kind, const std::function<void(Database&)>& fill = {});

    Database(Database&&) noexcept;
    Database& operator=(Database&&) noexcept;
    ~Database();

    /// One statement. Code::Misuse if the database hasn't got what it names.
    Statement prepare(std::string_view sql);

    /// Runs statements without values, separated by ";", up to the first that fails.
    void exec(std::string_view sql);

    /// Rows changed by the last insert, update or delete.
    int changes() const;

    bool has_table(const QString& name) { return !columns_of(name).isEmpty(); }
    QList<Column> columns_of(const QString& table); ///< in their order; none if there is no such table

    /// Tells that work on very many rows follows, for the engine to make room for them. Changes no result.
    void expect_much();

    /// Which state of the database the reads of the transaction in hand see, once it has read: a mark that each write
    /// of whatever program changes. Empty where there is none to be had, as on a server.
    QByteArray state() const;

    const QString& path() const; ///< as it was given

private:
    friend class Transaction;
    friend class Engine;
    explicit Database(std::unique_ptr<Engine> engine);
    std::unique_ptr<Engine> m_engine;
};

/// Puts the journal of a database that isn't there under another name (kept_name, its journal), and returns that; empty
/// where the database is there or has no journal. The engine would play it into the next file of the name.
/// Code::ReadOnly if the journal can't be renamed.
QString put_away_journal(const QString& path);

/// A new database of the kind as bytes, to be written as often as needed: one key serves all copies, since they share
/// the salt.
QByteArray empty_database_image(Kind kind);

/// The file at the path as bytes, whatever it is; empty if it can't be read. It is read through the engine's own
/// handle: closing another one would take away the locks that this program holds on the file.
QByteArray bytes_of(const QString& path);

/// Whether the database at the path still stands at this state, told without opening it. False where somebody is
/// writing at this moment or was killed while writing, where the file can't be read, and of an empty state: then it is
/// to be read, which tells.
bool stands_at(const QString& path, const QByteArray& state);

/// The row a statement stands on, until that steps on, is bound anew or ends. Columns are counted from 0 and end before
/// columns(). A column of another type is converted, Null is 0 or empty:
///   number() of "12a" // 12      of "a" // 0      text() of 12 // "12"
class Row {
public:
    qint64 number(int column) const;
    int integer(int column) const; ///< number held within int
    QString text(int column) const;
    /// The text as the file holds it, in UTF-8; stands until the statement steps on or ends.
    QByteArrayView utf8(int column) const;
    bool is_null(int column) const;
    int columns() const;
    QString name(int column) const; ///< the column's heading

private:
    friend class Statement;
    explicit Row(const EngineStatement* statement) : m_statement(statement) {}
    const EngineStatement* m_statement;
};

/// Must end before its database does.
class Statement {
public:
    Statement(Statement&&) noexcept;
    Statement& operator=(Statement&&) noexcept;
    ~Statement();

    /// Binds the values, which are copied, to the places "?" in order. A Statement may be bound and run again after
    /// each run. Places beyond the values keep what they have, Null at first; values beyond the places are
    /// Code::Misuse.
    template <typename... Values>
    Statement& bind(const Values&... values) {
        reset();
        int place = 0;
        (bind_at(++place, values), ...);
        return *this;
    }
    void bind_at(int place, std::integral auto value) { bind_number(place, qint64(value)); }
    template <typename Master>
    void bind_at(int place, base::SystemNumber<Master> value) {
        bind_number(place, value.value());
    }
    void bind_at(int place, QStringView value);
    void bind_at(int place, const QString& value) { bind_at(place, QStringView(value)); }
    void bind_utf8(int place, QByteArrayView value);
    void bind_null(int place);

    /// Tells that the rows are wanted soon: what several statements ask before one steps costs a server one round trip.
    void ask();

    /// Goes to the next row; false when there is none, and the statement is reset then.
    bool step();
    Row row() const { return Row(m_statement.get()); }

    /// Runs a statement whose rows, if it gives any, nobody wants.
    void run();

    /// Back to before the first row; what is bound stays.
    void reset();

private:
    friend class Database;
    explicit Statement(std::unique_ptr<EngineStatement> statement);
    void bind_number(int place, qint64 value);
    std::unique_ptr<EngineStatement> m_statement;
};

/// All writes of one procedure on one file. Takes the write lock at once (waiting at most the connection's patience)
/// and makes sure the file at the path is still the one that was opened: Code::Busy or Replaced otherwise. Rolls back
/// when it goes without commit(), or after one that has thrown. A database has one at a time.
class Transaction {
public:
    enum class Lock {
        Read, ///< writes nothing: all reads until its end see one state of the file
        Write,
        Exclusive, ///< keeps readers out as well
    };
    explicit Transaction(Database& database, Lock lock = Lock::Write);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void commit();

private:
    Engine& m_engine;
    bool m_open = true;
};

} // namespace store
