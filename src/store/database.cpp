#include "store/connection.h"
#include "store/key.h"
#include "store/schema.h"

#include <QFileInfo>
#include <algorithm>
#include <sqlite3.h>

namespace store {

namespace {

constexpr int smallest_database = 4096;

/// What every connection is set to once it is proved, behind the reads that prove it:
/// - no write-ahead log in a shared folder, and a commit survives a power failure of the machine;
/// - rows that go aren't overwritten: all is encrypted anyway, and emptying a table would cost as much as filling it;
/// - room for a large table read and changed in one go.
constexpr std::string_view settled = "commit; pragma journal_mode=delete; pragma synchronous=extra;"
                                     " pragma secure_delete=off; pragma cache_size=-16384";

/// The first read of all decrypts the first page and reads the tables' definitions.
void prove_key(Connection& connection) {
    constexpr std::string_view first_read = "select count(*) from sqlite_master";
    const int result = sqlite3_exec(connection.engine, std::string(first_read).c_str(), nullptr, nullptr, nullptr);
    if ((result & 0xff) == SQLITE_NOTADB)
        throw Error(Code::WrongKey, connection.path,
            QString::fromLatin1(first_read.data(), qsizetype(first_read.size())),
            QString::fromUtf8(sqlite3_errmsg(connection.engine)));
    if (result != SQLITE_OK)
        connection.fail(first_read, result);
}

/// The file open and its key proved. The first read also undoes what a killed writer left half done. Where that had
/// torn the first bytes, the key was that of these, and only the second try judges the file.
std::unique_ptr<Connection> proved(const QString& path, std::chrono::milliseconds patience, bool first_try = true) {
    auto connection = std::make_unique<Connection>(path);
    connection->patience = patience;
    connection->open(SQLITE_OPEN_READWRITE);
    const QByteArray salt = salt_of(*connection);
    connection->unlock(key_for(salt));
    // One transaction around all that is asked here: each would lock and look at the file anew, over the network.
    connection->exec("begin");
    try {
        prove_key(*connection);
    } catch (const Error& error) {
        if (!first_try || error.code() != Code::WrongKey || salt_of(*connection) == salt)
            throw;
        return proved(path, patience, false);
    }
    return connection;
}

qint64 number_of(Database& database, std::string_view sql) {
    Statement statement = database.prepare(sql);
    return statement.step() ? statement.row().number(0) : 0;
}

/// A file of whatever kind may belong to another product, with a version of its own.
void check_kind(Database& database, Kind kind) {
    if (kind == Kind::Any)
        return;
    if (number_of(database, "pragma application_id") != application_id(kind))
        throw Error(Code::OtherKind, database.path(), {}, {});
    if (number_of(database, "pragma user_version") > schema_version)
        throw Error(Code::Newer, database.path(), {}, {});
}

} // namespace

QByteArray salt_of(const Connection& connection) {
    const qint64 size = connection.size();
    if (size == 0)
        throw Error(Code::Empty, connection.path, {}, {});
    const QByteArray salt = size < smallest_database ? QByteArray() : connection.first(salt_size);
    if (salt.isEmpty() || salt == QByteArrayView("SQLite format 3\0", salt_size))
        throw Error(Code::NotADatabase, connection.path, {}, {});
    return salt;
}

Database::Database(std::unique_ptr<Connection> connection) : m_connection(std::move(connection)) {}
Database::Database(Database&&) noexcept = default;
Database& Database::operator=(Database&&) noexcept = default;
Database::~Database() = default;

Database Database::open(const QString& path, Kind kind, std::chrono::milliseconds patience) {
    if (!QFileInfo::exists(path))
        throw Error(Code::Missing, path, {}, {});
    Database database(proved(path, patience));
    check_kind(database, kind);
    database.exec(settled);
    return database;
}

QByteArray bytes_of(const QString& path) {
    try {
        Connection connection(path);
        connection.open(SQLITE_OPEN_READONLY);
        return connection.first(std::max(qint64(0), connection.size()));
    } catch (const Error&) {
        return {};
    }
}

Statement Database::prepare(std::string_view sql) {
    return Statement(*m_connection, sql);
}

void Database::exec(std::string_view sql) {
    m_connection->exec(sql);
}

int Database::changes() const {
    return sqlite3_changes(m_connection->engine);
}

bool Database::has_table(const QString& name) {
    Statement tables = prepare("select 1 from sqlite_master where type='table' and name=?");
    return tables.bind(name).step();
}

const QString& Database::path() const {
    return m_connection->path;
}

} // namespace store
