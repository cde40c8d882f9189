#include "store/held_bytes.h"

#include "store/file_engine.h"

#include <sqlite3.h>

namespace store {

namespace {

/// The engine's locks are taken one above the other.
int lock_alone(sqlite3_file& file) {
    for (const int level : {SQLITE_LOCK_SHARED, SQLITE_LOCK_RESERVED, SQLITE_LOCK_EXCLUSIVE})
        if (const int result = file.pMethods->xLock(&file, level); result != SQLITE_OK) {
            file.pMethods->xUnlock(&file, SQLITE_LOCK_NONE);
            return result;
        }
    return SQLITE_OK;
}

} // namespace

HeldBytes::HeldBytes(const QString& path, std::chrono::milliseconds patience)
    : m_connection(std::make_unique<FileEngine>(path)) {
    m_connection->patience = patience;
    m_connection->open(SQLITE_OPEN_READWRITE);
    if (sqlite3_db_readonly(m_connection->handle, "main") == 1)
        throw Error(Code::ReadOnly, path, {}, {});
    int result = lock_alone(m_connection->file());
    for (int tries = 0; result == SQLITE_BUSY && m_connection->wait_for_others(tries); ++tries)
        result = lock_alone(m_connection->file());
    m_connection->check(result);
}

HeldBytes::~HeldBytes() {
    sqlite3_file& file = m_connection->file();
    file.pMethods->xUnlock(&file, SQLITE_LOCK_NONE);
}

QByteArray HeldBytes::bytes() const {
    const qint64 size = m_connection->size();
    const QByteArray bytes = size < 0 ? QByteArray() : m_connection->first(size);
    if (bytes.size() != size)
        throw Error(Code::Io, m_connection->path, {}, {});
    return bytes;
}

void HeldBytes::overwrite(const QByteArray& bytes) {
    remove_journal();
    sqlite3_file& file = m_connection->file();
    m_connection->check(file.pMethods->xTruncate(&file, bytes.size()));
    m_connection->check(file.pMethods->xWrite(&file, bytes.constData(), int(bytes.size()), 0));
    m_connection->check(file.pMethods->xSync(&file, SQLITE_SYNC_FULL));
}

void HeldBytes::remove_journal() {
    sqlite3_vfs* system = nullptr;
    sqlite3_file_control(m_connection->handle, "main", SQLITE_FCNTL_VFS_POINTER, &system);
    const QByteArray journal = sqlite3_db_filename(m_connection->handle, "main") + QByteArrayLiteral("-journal");
    const int result = system->xDelete(system, journal.constData(), /*syncDir=*/1);
    if (result != SQLITE_IOERR_DELETE_NOENT)
        m_connection->check(result);
}

} // namespace store
