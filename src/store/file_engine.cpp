#include "store/file_engine.h"

#include "base/literals.h"

#include <algorithm>
#include <array>
#include <sqlite3.h>
#include <thread>

namespace store {

using namespace base;

namespace {

struct Meaning {
    int result;
    Code code;
};

// Extended results stand before the plain results that they refine.
constexpr std::array meanings{
    Meaning{SQLITE_READONLY_DBMOVED, Code::Replaced},
    Meaning{SQLITE_READONLY, Code::ReadOnly},
    Meaning{SQLITE_CANTOPEN, Code::ReadOnly}, // of a database that is open: its journal can't be made
    Meaning{SQLITE_PERM, Code::ReadOnly},
    Meaning{SQLITE_FULL, Code::Full},
    Meaning{SQLITE_BUSY, Code::Busy},
    Meaning{SQLITE_LOCKED, Code::Busy},
    Meaning{SQLITE_PROTOCOL, Code::Busy},
    Meaning{SQLITE_CORRUPT, Code::Damaged},
    Meaning{SQLITE_NOTADB, Code::Damaged},
    Meaning{SQLITE_IOERR_SHORT_READ, Code::Damaged},
    Meaning{SQLITE_IOERR, Code::Io},
    Meaning{SQLITE_MISUSE, Code::Misuse},
    Meaning{SQLITE_RANGE, Code::Misuse},
    Meaning{SQLITE_CONSTRAINT, Code::Misuse},
};

Code meaning_of(int result) {
    for (const Meaning& meaning : meanings)
        if (meaning.result == result || meaning.result == (result & 0xff))
            return meaning.code;
    return Code::Other;
}

int met_a_lock(void* state, int tries) {
    return static_cast<FileEngine*>(state)->wait_for_others(tries) ? 1 : 0;
}

/// What begins a transaction of each lock.
constexpr std::string_view beginning(Transaction::Lock lock) {
    switch (lock) {
    case Transaction::Lock::Read:
        return "begin";
    case Transaction::Lock::Write:
        return "begin immediate";
    default:
        return "begin exclusive";
    }
}

} // namespace

FileEngine::~FileEngine() {
    sqlite3_close_v2(handle);
}

void FileEngine::open(int flags) {
    const int result = sqlite3_open_v2(path.toUtf8().constData(), &handle, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    if (result != SQLITE_OK)
        throw Error((result & 0xff) == SQLITE_CANTOPEN ? Code::NoAccess : Code::Other, path, {},
            QString::fromUtf8(sqlite3_errstr(result)));
    sqlite3_extended_result_codes(handle, 1);
    sqlite3_busy_handler(handle, met_a_lock, this);
}

void FileEngine::unlock(const QByteArray& key) {
    if (const int result = sqlite3_key(handle, key.constData(), int(key.size())); result != SQLITE_OK)
        fail({}, result);
    exec("pragma cipher_page_size=4096");
}

void FileEngine::exec(std::string_view sql) {
    const int result = sqlite3_exec(handle, std::string(sql).c_str(), nullptr, nullptr, nullptr);
    if (result != SQLITE_OK)
        fail(sql, result);
}

FileEngine& FileEngine::of(Engine& engine) {
    if (auto* file = dynamic_cast<FileEngine*>(&engine))
        return *file;
    throw Error(Code::Misuse, engine.path, {}, {});
}

int FileEngine::changes() const {
    return sqlite3_changes(handle);
}

QList<Column> FileEngine::columns_of(const QString& table) {
    QList<Column> columns;
    const auto rows = prepare(u"pragma table_info(%1)"_s.arg(quoted(table)).toStdString());
    while (rows->step())
        columns << Column{QString::fromUtf8(rows->utf8(1)), QString::fromUtf8(rows->utf8(2))};
    return columns;
}

QStringList FileEngine::names() {
    QStringList names;
    const auto rows = prepare("select name from sqlite_master");
    while (rows->step())
        names << QString::fromUtf8(rows->utf8(0));
    return names;
}

void FileEngine::expect_much() {
    exec("pragma cache_size=-32000");
}

void FileEngine::begin(Transaction::Lock lock) {
    exec(beginning(lock));
    if (!replaced())
        return;
    roll_back();
    throw Error(Code::Replaced, path, {}, {});
}

void FileEngine::commit() {
    exec("commit");
}

/// After some failures the library has rolled back by itself.
void FileEngine::roll_back() noexcept {
    if (sqlite3_get_autocommit(handle) == 0)
        sqlite3_exec(handle, "rollback", nullptr, nullptr, nullptr);
}

sqlite3_file& FileEngine::file() const {
    sqlite3_file* opened = nullptr;
    sqlite3_file_control(handle, "main", SQLITE_FCNTL_FILE_POINTER, &opened);
    return *opened;
}

// Bytes are read through the engine's own handle: closing another one would take away the locks that this program holds
// on the file.
qint64 FileEngine::size() const {
    sqlite3_int64 bytes = 0;
    return file().pMethods->xFileSize(&file(), &bytes) == SQLITE_OK ? bytes : -1;
}

QByteArray FileEngine::first(qint64 count) const {
    QByteArray bytes(count, '\0');
    const bool read = file().pMethods->xRead(&file(), bytes.data(), int(count), 0) == SQLITE_OK;
    return read ? bytes : QByteArray();
}

bool FileEngine::wait_for_others(int tries) {
    if (tries == 0)
        waiting_since = std::chrono::steady_clock::now();
    if (std::chrono::steady_clock::now() - waiting_since >= patience)
        return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(std::min(1 + tries / 2, 20)));
    return true;
}

bool FileEngine::replaced() const {
    int moved = 0;
    sqlite3_file_control(handle, "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    return moved != 0;
}

void FileEngine::fail(std::string_view sql, int result) const {
    throw Error(meaning_of(result), path, QString::fromUtf8(sql.data(), qsizetype(sql.size())),
        QString::fromUtf8(sqlite3_errmsg(handle)));
}

void FileEngine::check(int result) const {
    if (result != SQLITE_OK)
        throw Error(meaning_of(result), path, {}, QString::fromUtf8(sqlite3_errstr(result)));
}

} // namespace store
