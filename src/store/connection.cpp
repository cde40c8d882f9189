#include "store/connection.h"

#include "platform/paths.h"

#include <algorithm>
#include <array>
#include <sqlite3.h>
#include <thread>

namespace store {

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
    return static_cast<Connection*>(state)->wait_for_others(tries) ? 1 : 0;
}

} // namespace

Connection::~Connection() {
    sqlite3_close_v2(engine);
}

void Connection::open(int flags) {
    const int result = sqlite3_open_v2(path.toUtf8().constData(), &engine, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    if (result != SQLITE_OK)
        throw Error((result & 0xff) == SQLITE_CANTOPEN ? Code::NoAccess : Code::Other, path, {},
            QString::fromUtf8(sqlite3_errstr(result)));
    sqlite3_extended_result_codes(engine, 1);
    sqlite3_busy_handler(engine, met_a_lock, this);
}

void Connection::unlock(const QByteArray& key) {
    if (const int result = sqlite3_key(engine, key.constData(), int(key.size())); result != SQLITE_OK)
        fail({}, result);
    exec("pragma cipher_page_size=4096");
}

void Connection::exec(std::string_view sql) {
    const int result = sqlite3_exec(engine, std::string(sql).c_str(), nullptr, nullptr, nullptr);
    if (result != SQLITE_OK)
        fail(sql, result);
}

sqlite3_file& Connection::file() const {
    sqlite3_file* handle = nullptr;
    sqlite3_file_control(engine, "main", SQLITE_FCNTL_FILE_POINTER, &handle);
    return *handle;
}

// Bytes are read through the engine's own handle: closing another one would take away the locks that this program holds
// on the file.
qint64 Connection::size() const {
    sqlite3_int64 bytes = 0;
    return file().pMethods->xFileSize(&file(), &bytes) == SQLITE_OK ? bytes : -1;
}

QByteArray Connection::first(qint64 count) const {
    QByteArray bytes(count, '\0');
    const bool read = file().pMethods->xRead(&file(), bytes.data(), int(count), 0) == SQLITE_OK;
    return read ? bytes : QByteArray();
}

bool Connection::wait_for_others(int tries) {
    if (tries == 0)
        waiting_since = std::chrono::steady_clock::now();
    if (std::chrono::steady_clock::now() - waiting_since >= patience)
        return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(std::min(1 + tries / 2, 20)));
    return true;
}

bool Connection::replaced() const {
    int moved = 0;
    sqlite3_file_control(engine, "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    return moved != 0;
}

void Connection::fail(std::string_view sql, int result) const {
    throw Error(meaning_of(result), path, QString::fromUtf8(sql.data(), qsizetype(sql.size())),
        QString::fromUtf8(sqlite3_errmsg(engine)));
}

void Connection::check(int result) const {
    if (result != SQLITE_OK)
        throw Error(meaning_of(result), path, {}, QString::fromUtf8(sqlite3_errstr(result)));
}

} // namespace store
