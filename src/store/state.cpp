#include "store/file_engine.h"
#include "store/files.h"

#include <QFileInfo>
#include <sqlite3.h>

namespace store {

namespace {

/// Each write changes the counter in the first page, and with it the page's encryption, which begins at random. By the
/// same bytes the engine tells whether the pages that it remembers still hold.
constexpr int state_size = 48;

/// What holds off whoever would write pages.
class Reading {
public:
    explicit Reading(sqlite3_file& file)
        : m_file(file), m_held(file.pMethods->xLock(&file, SQLITE_LOCK_SHARED) == SQLITE_OK) {}
    ~Reading() { m_file.pMethods->xUnlock(&m_file, SQLITE_LOCK_NONE); }
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;
    bool held() const { return m_held; }

private:
    sqlite3_file& m_file;
    bool m_held;
};

} // namespace

QByteArray FileEngine::state() const {
    return sqlite3_get_autocommit(handle) == 0 ? first(state_size) : QByteArray();
}

// A journal may belong to a writer who was killed between its pages.
bool stands_at(const QString& path, const QByteArray& state) {
    if (state.isEmpty())
        return false;
    try {
        FileEngine engine(path);
        engine.open(SQLITE_OPEN_READONLY);
        const Reading reading(engine.file());
        return reading.held() && !QFileInfo::exists(journal_of(path)) && engine.first(state_size) == state;
    } catch (const Error&) {
        return false;
    }
}

} // namespace store
