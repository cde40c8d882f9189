#include "store/held.h"

#include "base/literals.h"
#include "store/file_engine.h"
#include "store/key.h"

#include <QFile>
#include <algorithm>
#include <sqlite3.h>
#include <utility>

namespace store {

using namespace base;

namespace {

/// Another PC may be restoring the same file: it is out of the way again in a moment.
constexpr int most_attempts = 10;

/// A transaction's locks go with its end. In this mode of the engine they stay with the connection: the one against
/// writers, since a transaction that is rolled back has not asked for the one against readers.
Database hold(const QString& path, Kind kind, std::chrono::milliseconds patience) {
    for (int attempt = 1;; ++attempt) {
        try {
            Database database = Database::open(path, kind, patience);
            const Transaction alone(database);
            database.exec("pragma main.locking_mode=exclusive");
            return database;
        } catch (const Error& error) {
            if (error.code() != Code::Replaced || attempt == most_attempts)
                throw;
        }
    }
}

qint64 number_of(Database& database, const QString& sql) {
    Statement statement = database.prepare(sql.toStdString());
    return statement.step() ? statement.row().number(0) : 0;
}

/// Room runs out, or writing is refused, at the target and not at the file that the engine names.
[[noreturn]] void fail_at(const QString& target, const Error& error) {
    const bool of_target = error.code() == Code::Full || error.code() == Code::ReadOnly;
    throw Error(error.code(), of_target ? target : error.file(), error.statement(), error.detail());
}

Code code_of(QFileDevice::FileError failure) {
    if (failure == QFileDevice::ResourceError)
        return Code::Full;
    return failure == QFileDevice::WriteError ? Code::Io : Code::ReadOnly;
}

/// A second file beside the open one, as long as this lives.
class Attached {
public:
    Attached(Database& database, FileEngine& connection, const QString& path) : m_engine(connection.handle) {
        const QString key = QString::fromLatin1(key_for(salt_of(connection)));
        database.prepare("attach ? as compacted key ?").bind(path, key).run();
    }
    ~Attached() {
        if (sqlite3_get_autocommit(m_engine) == 0)
            sqlite3_exec(m_engine, "rollback", nullptr, nullptr, nullptr);
        sqlite3_exec(m_engine, "detach compacted", nullptr, nullptr, nullptr);
    }
    Attached(const Attached&) = delete;
    Attached& operator=(const Attached&) = delete;

private:
    sqlite3* m_engine;
};

/// The export leaves out the marks that tell the kind and the version.
QString export_with_marks(Database& database) {
    return u"begin; select sqlcipher_export('compacted'); pragma compacted.application_id=%1;"
           " pragma compacted.user_version=%2; commit"_s.arg(number_of(database, u"pragma application_id"_s))
               .arg(number_of(database, u"pragma user_version"_s));
}

/// Nothing that is lost with a half-made copy matters.
constexpr std::string_view target_mode = "pragma compacted.cipher_page_size=4096; pragma compacted.synchronous=off;"
                                         " pragma compacted.journal_mode=off; pragma compacted.cache_size=-16384";

} // namespace

RowCounts row_counts(Database& database) {
    QStringList names{u"sqlite_master"_s};
    Statement tables =
        database.prepare("select name from sqlite_master where type='table' and name not like 'sqlite_%'");
    while (tables.step())
        names << tables.row().text(0);
    RowCounts counts;
    for (const QString& name : names)
        counts[name] = number_of(database, u"select count(*) from "_s + quoted(name));
    return counts;
}

Database open_checked(const QString& path, Kind kind) {
    Database database = Database::open(path, kind);
    Statement check = database.prepare("pragma integrity_check");
    const QString result = check.step() ? check.row().text(0) : QString();
    if (result != u"ok")
        throw Error(Code::Damaged, path, u"pragma integrity_check"_s, result);
    return database;
}

void check_copy(const QString& path, Kind kind, const RowCounts& expected) {
    Database copy = open_checked(path, kind);
    if (row_counts(copy) != expected)
        throw Error(Code::Damaged, path, {}, u"行数が元のデータベースと違います。"_s);
}

Held::Held(const QString& path, Kind kind, std::chrono::milliseconds patience)
    : m_kind(kind), m_database(hold(path, kind, patience)), m_rows(row_counts(*m_database)) {}

Held::Held(Held&& other) noexcept
    : m_kind(other.m_kind), m_database(std::exchange(other.m_database, std::nullopt)), m_rows(std::move(other.m_rows)) {
}

/// While its locks stay, the engine empties its journal instead of removing it; a last transaction without them clears
/// up.
Held::~Held() {
    if (m_database)
        sqlite3_exec(connection().handle, "pragma main.locking_mode=normal; begin immediate; rollback", nullptr,
            nullptr, nullptr);
}

FileEngine& Held::connection() const {
    return FileEngine::of(*m_database->m_engine);
}

qint64 Held::spare_pages() {
    return number_of(*m_database, u"pragma freelist_count"_s);
}

void Held::compact_into(const QString& target) {
    try {
        const Attached attached(*m_database, connection(), target);
        m_database->exec(target_mode);
        m_database->exec(export_with_marks(*m_database).toStdString());
    } catch (const Error& error) {
        fail_at(target, error);
    }
}

// Read through the engine's own handle: closing another one would take the locks away.
void Held::copy_into(const QString& target) {
    constexpr sqlite3_int64 most_at_once = 1 << 20;
    sqlite3_file& source = connection().file();
    sqlite3_int64 size = 0;
    source.pMethods->xFileSize(&source, &size);
    QFile copy(target);
    bool written = copy.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    for (sqlite3_int64 done = 0; written && done < size; done += most_at_once) {
        QByteArray bytes(std::min(most_at_once, size - done), '\0');
        if (source.pMethods->xRead(&source, bytes.data(), int(bytes.size()), done) != SQLITE_OK)
            throw Error(Code::Other, path(), {}, {});
        written = copy.write(bytes) == bytes.size();
    }
    if (!written)
        throw Error(code_of(copy.error()), target, {}, copy.errorString());
}

void Held::take_over(const QString& copy) {
    Database source = Database::open(copy, m_kind);
    sqlite3_backup* copying =
        sqlite3_backup_init(connection().handle, "main", FileEngine::of(*source.m_engine).handle, "main");
    if (!copying)
        connection().fail("backup", sqlite3_extended_errcode(connection().handle));
    sqlite3_backup_step(copying, -1);
    if (const int result = sqlite3_backup_finish(copying); result != SQLITE_OK)
        connection().fail("backup", result);
}

} // namespace store
