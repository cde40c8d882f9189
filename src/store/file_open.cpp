#include "store/file_engine.h"
#include "store/key.h"
#include "store/schema.h"
#include "store/server.h"

#include <algorithm>
#include <sqlite3.h>

namespace store {

namespace {

constexpr int smallest_database = 4096;

/// What every engine is set to once it is proved, behind the reads that prove it:
/// - no write-ahead log in a shared folder, and a commit survives a power failure of the machine;
/// - rows that go aren't overwritten: all is encrypted anyway, and emptying a table would cost as much as filling it;
/// - room for a large table read and changed in one go.
constexpr std::string_view settled = "commit; pragma journal_mode=delete; pragma synchronous=extra;"
                                     " pragma secure_delete=off; pragma cache_size=-16384";

/// The first read of all decrypts the first page and reads the tables' definitions.
void prove_key(FileEngine& engine) {
    constexpr std::string_view first_read = "select count(*) from sqlite_master";
    const int result = sqlite3_exec(engine.handle, std::string(first_read).c_str(), nullptr, nullptr, nullptr);
    if ((result & 0xff) == SQLITE_NOTADB)
        throw Error(Code::WrongKey, engine.path, QString::fromLatin1(first_read.data(), qsizetype(first_read.size())),
            QString::fromUtf8(sqlite3_errmsg(engine.handle)));
    if (result != SQLITE_OK)
        engine.fail(first_read, result);
}

std::unique_ptr<FileEngine> opened(const QString& path, std::chrono::milliseconds patience) {
    auto engine = std::make_unique<FileEngine>(path);
    engine->patience = patience;
    engine->open(SQLITE_OPEN_READWRITE);
    return engine;
}

/// A file that is too small for a database may name one on a server.
std::optional<ServerPlace> place_named_in(const FileEngine& file) {
    const qint64 size = file.size();
    return size > 0 && size < smallest_database ? server_place(file.first(size)) : std::nullopt;
}

/// The open file with its key proved. The first read also undoes what a killed writer left half done. Where that had
/// torn the first bytes, the key was that of these, and only the second try judges the file.
std::unique_ptr<FileEngine> proved(std::unique_ptr<FileEngine> engine, bool first_try = true) {
    const QByteArray salt = salt_of(*engine);
    engine->unlock(key_for(salt));
    // One transaction around all that is asked here: each would lock and look at the file anew, over the network.
    engine->exec("begin");
    try {
        prove_key(*engine);
    } catch (const Error& error) {
        if (!first_try || error.code() != Code::WrongKey || salt_of(*engine) == salt)
            throw;
        return proved(opened(engine->path, engine->patience), false);
    }
    return engine;
}

qint64 number_of(Engine& engine, std::string_view sql) {
    const auto statement = engine.prepare(sql);
    return statement->step() ? statement->number(0) : 0;
}

/// A file of whatever kind may belong to another product, with a version of its own.
void check_kind(Engine& engine, Kind kind) {
    if (kind == Kind::Any)
        return;
    if (number_of(engine, "pragma application_id") != application_id(kind))
        throw Error(Code::OtherKind, engine.path, {}, {});
    if (number_of(engine, "pragma user_version") > schema_version)
        throw Error(Code::Newer, engine.path, {}, {});
}

} // namespace

QByteArray salt_of(const FileEngine& engine) {
    const qint64 size = engine.size();
    if (size == 0)
        throw Error(Code::Empty, engine.path, {}, {});
    const QByteArray salt = size < smallest_database ? QByteArray() : engine.first(salt_size);
    if (salt.isEmpty() || salt == QByteArrayView("SQLite format 3\0", salt_size))
        throw Error(Code::NotADatabase, engine.path, {}, {});
    return salt;
}

std::unique_ptr<Engine> open_engine(const QString& path, Kind kind, std::chrono::milliseconds patience) {
    auto file = opened(path, patience);
    if (const std::optional<ServerPlace> place = place_named_in(*file))
        return open_on_server(*place, path, kind, patience);
    auto engine = proved(std::move(file));
    check_kind(*engine, kind);
    engine->exec(settled);
    return engine;
}

QByteArray bytes_of(const QString& path) {
    try {
        FileEngine engine(path);
        engine.open(SQLITE_OPEN_READONLY);
        return engine.first(std::max(qint64(0), engine.size()));
    } catch (const Error&) {
        return {};
    }
}

} // namespace store
