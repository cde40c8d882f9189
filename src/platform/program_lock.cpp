#include "platform/program_lock.h"

#include "base/literals.h"

#include <QFile>
#include <QThread>

#ifdef Q_OS_WIN
#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace platform {

using namespace base;

namespace {

QString lock_path(const QString& folder, const QString& title) {
    return folder + u'/' + title + u".lock"_s;
}

#ifdef Q_OS_WIN
// A file opened without sharing is the lock.
int open_locked(const QString& path, bool create, bool alone = true) {
    int file = -1;
    const int flags = _O_RDWR | (create ? _O_CREAT : 0);
    _wsopen_s(&file, reinterpret_cast<const wchar_t*>(path.utf16()), flags, alone ? _SH_DENYRW : _SH_DENYNO,
        _S_IREAD | _S_IWRITE);
    return file;
}
void close_file(int file) {
    _close(file);
}
bool another_holds(const QString& path) {
    return QFile::exists(path) && open_locked(path, false) < 0;
}
#else
int open_locked(const QString& path, bool create, bool alone = true) {
    const int file = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CLOEXEC | (create ? O_CREAT : 0), 0666);
    if (file < 0 || ::flock(file, (alone ? LOCK_EX : LOCK_SH) | LOCK_NB) == 0)
        return file;
    ::close(file);
    return -1;
}
void close_file(int file) {
    ::close(file);
}
// Asked with a shared lock, so that two who ask don't take each other for the program.
bool another_holds(const QString& path) {
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return false;
    const bool held = ::flock(file, LOCK_SH | LOCK_NB) != 0;
    ::close(file);
    return held;
}
#endif

} // namespace

ProgramLock::ProgramLock(const QString& folder, const QString& title) : m_path(lock_path(folder, title)) {}

ProgramLock::~ProgramLock() {
    if (m_file >= 0)
        close_file(m_file);
}

bool ProgramLock::take(std::chrono::milliseconds patience) {
    return hold(Holder::Alone, patience);
}

bool ProgramLock::share(std::chrono::milliseconds patience) {
    return hold(Holder::Together, patience);
}

bool ProgramLock::hold(Holder holder, std::chrono::milliseconds patience) {
    constexpr std::chrono::milliseconds pause(20);
    for (auto waited = std::chrono::milliseconds(0); m_file < 0; waited += pause) {
        m_file = open_locked(m_path, /*create=*/true, /*alone=*/holder == Holder::Alone);
        if (m_file >= 0 || waited >= patience)
            break;
        QThread::msleep(pause.count());
    }
    return m_file >= 0;
}

bool ProgramLock::held(const QString& folder, const QString& title) {
    return another_holds(lock_path(folder, title));
}

} // namespace platform
