#include "platform/program_lock.h"

#include "base/literals.h"
#include "platform/paths.h"

#include <QFile>
#include <QThread>
#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#ifdef Q_OS_WIN
#include <cstdlib>
#include <io.h>
#include <share.h>
#include <windows.h>
#else
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
bool kept_by_another() {
    unsigned long failure = 0;
    _get_doserrno(&failure);
    return failure == ERROR_SHARING_VIOLATION;
}
int open_without_sharing(const QString& path, int create, bool alone) {
    int file = -1;
    _wsopen_s(&file, reinterpret_cast<const wchar_t*>(path.utf16()), _O_RDWR | create, alone ? _SH_DENYRW : _SH_DENYNO,
        _S_IREAD | _S_IWRITE);
    return file;
}
int open_locked(const QString& path, bool alone) {
    const int file = open_without_sharing(path, _O_CREAT, alone);
    if (file < 0 && !kept_by_another())
        throw LockError(path, QString::fromStdString(std::generic_category().message(errno)));
    return file;
}
void close_file(int file) {
    _close(file);
}
bool another_holds(const QString& path) {
    const int file = open_without_sharing(path, 0, true);
    if (file >= 0) {
        _close(file);
        return false;
    }
    if (!kept_by_another() && errno != ENOENT)
        throw LockError(path, QString::fromStdString(std::generic_category().message(errno)));
    return kept_by_another();
}
#else
int open_file(const QString& path, bool alone) {
    const QByteArray name = QFile::encodeName(path);
    const int file = ::open(name.constData(), O_RDWR | O_CLOEXEC | O_CREAT, 0666);
    return file < 0 && !alone ? ::open(name.constData(), O_RDONLY | O_CLOEXEC) : file;
}
/// -1 where another program keeps it.
int open_locked(const QString& path, bool alone) {
    const int file = open_file(path, alone);
    if (file >= 0 && ::flock(file, (alone ? LOCK_EX : LOCK_SH) | LOCK_NB) == 0)
        return file;
    const int failure = errno;
    if (file >= 0)
        ::close(file);
    if (file < 0 || failure != EWOULDBLOCK)
        throw LockError(path, QString::fromStdString(std::generic_category().message(failure)));
    return -1;
}
void close_file(int file) {
    ::close(file);
}
// Asked with a shared lock, so that two who ask don't take each other for the program.
bool another_holds(const QString& path) {
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0 && errno != ENOENT && errno != ENOTDIR)
        throw LockError(path, QString::fromStdString(std::generic_category().message(errno)));
    if (file < 0)
        return false;
    const int failure = ::flock(file, LOCK_SH | LOCK_NB) == 0 ? 0 : errno;
    ::close(file);
    if (failure != 0 && failure != EWOULDBLOCK)
        throw LockError(path, QString::fromStdString(std::generic_category().message(failure)));
    return failure != 0;
}
#endif

} // namespace

LockError::LockError(const QString& file, const QString& reason)
    : std::runtime_error(u"ロックファイルを使えません。\n%1\n%2"_s.arg(native(file), reason).toStdString()) {}

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
        m_file = open_locked(m_path, /*alone=*/holder == Holder::Alone);
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
