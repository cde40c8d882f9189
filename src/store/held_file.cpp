#include "store/holding.h"

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

class FileHolding final : public Holding {
public:
    FileHolding(Database database, Kind kind) : m_kind(kind), m_database(std::move(database)) {
        const Transaction alone(m_database);
        m_database.exec("pragma main.locking_mode=exclusive");
    }
    ~FileHolding() override;

    RowCounts rows() override { return row_counts(m_database); }
    qint64 spare_pages() override { return number_of(m_database, u"pragma freelist_count"_s); }
    bool is_file() const override { return true; }
    void compact_into(const QString& target) override;
    void copy_into(const QString& target) override;
    void take_over(const QString& copy) override;
    void rename_schemas(const NewNames&) override { throw Error(Code::Misuse, m_database.path(), {}, {}); }

private:
    FileEngine& engine() { return FileEngine::of(Engine::of(m_database)); }

    Kind m_kind;
    Database m_database;
};

/// While its locks stay, the engine empties its journal instead of removing it; a last transaction without them clears
/// up.
FileHolding::~FileHolding() {
    sqlite3_exec(
        engine().handle, "pragma main.locking_mode=normal; begin immediate; rollback", nullptr, nullptr, nullptr);
}

void FileHolding::compact_into(const QString& target) {
    try {
        const Attached attached(m_database, engine(), target);
        m_database.exec(target_mode);
        m_database.exec(export_with_marks(m_database).toStdString());
    } catch (const Error& error) {
        fail_at(target, error);
    }
}

// Read through the engine's own handle: closing another one would take the locks away.
void FileHolding::copy_into(const QString& target) {
    constexpr sqlite3_int64 most_at_once = 1 << 20;
    sqlite3_file& source = engine().file();
    sqlite3_int64 size = 0;
    source.pMethods->xFileSize(&source, &size);
    QFile copy(target);
    bool written = copy.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    for (sqlite3_int64 done = 0; written && done < size; done += most_at_once) {
        QByteArray bytes(std::min(most_at_once, size - done), '\0');
        if (source.pMethods->xRead(&source, bytes.data(), int(bytes.size()), done) != SQLITE_OK)
            throw Error(Code::Other, m_database.path(), {}, {});
        written = copy.write(bytes) == bytes.size();
    }
    if (!written)
        throw Error(code_of(copy.error()), target, {}, copy.errorString());
}

void FileHolding::take_over(const QString& copy) {
    Database source = Database::open(copy, m_kind);
    sqlite3_backup* copying =
        sqlite3_backup_init(engine().handle, "main", FileEngine::of(Engine::of(source)).handle, "main");
    if (!copying)
        engine().fail("backup", sqlite3_extended_errcode(engine().handle));
    sqlite3_backup_step(copying, -1);
    if (const int result = sqlite3_backup_finish(copying); result != SQLITE_OK)
        engine().fail("backup", result);
}

} // namespace

// In this mode of the engine a transaction's locks stay with the connection: the one against writers, since a
// transaction that is rolled back has not asked for the one against readers.
std::unique_ptr<Holding> hold_file(Database database, Kind kind) {
    return std::make_unique<FileHolding>(std::move(database), kind);
}

} // namespace store
