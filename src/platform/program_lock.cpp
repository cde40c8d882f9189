#include "platform/program_lock.h"

#include "base/literals.h"
#include "platform/paths.h"

#include <QFile>
#include <QThread>
#include <system_error>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace platform {

using namespace base;

namespace {

QString lock_path(const QString& folder, const QString& title) {
    return folder + u'/' + title + u".lock"_s;
}

// open_locked() is -1 where another program keeps the file.

#ifdef Q_OS_WIN
// A file opened without sharing is the lock. Programs that this one starts don't inherit it.
HANDLE open_sharing(const QString& path, DWORD access, DWORD creation, bool alone) {
    return CreateFileW(reinterpret_cast<const wchar_t*>(native(path).utf16()), access,
        alone ? 0 : FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, creation, FILE_ATTRIBUTE_NORMAL, nullptr);
}
HANDLE open_file(const QString& path, bool alone) {
    const HANDLE file = open_sharing(path, GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS, alone);
    return file == INVALID_HANDLE_VALUE && !alone && GetLastError() == ERROR_ACCESS_DENIED
               ? open_sharing(path, GENERIC_READ, OPEN_EXISTING, alone)
               : file;
}
/// Throws the failure unless it says that another program keeps the file.
void expect_kept_by_another(const QString& path, DWORD failure) {
    if (failure != ERROR_SHARING_VIOLATION)
        throw LockError(path, QString::fromLocal8Bit(std::system_category().message(int(failure))));
}
qintptr open_locked(const QString& path, bool alone) {
    const HANDLE file = open_file(path, alone);
    if (file == INVALID_HANDLE_VALUE)
        expect_kept_by_another(path, GetLastError());
    return reinterpret_cast<qintptr>(file);
}
void close_file(qintptr file) {
    CloseHandle(reinterpret_cast<HANDLE>(file));
}
// Asked in a way that shares, so that two who ask don't take each other for the program.
bool another_holds(const QString& path) {
    const HANDLE file = open_sharing(path, GENERIC_READ, OPEN_EXISTING, /*alone=*/false);
    const DWORD failure = GetLastError();
    if (file != INVALID_HANDLE_VALUE)
        CloseHandle(file);
    else if (failure != ERROR_FILE_NOT_FOUND && failure != ERROR_PATH_NOT_FOUND)
        expect_kept_by_another(path, failure);
    return file == INVALID_HANDLE_VALUE && failure == ERROR_SHARING_VIOLATION;
}
#else
int open_file(const QString& path, bool alone) {
    const QByteArray name = QFile::encodeName(path);
    const int file = ::open(name.constData(), O_RDWR | O_CLOEXEC | O_CREAT, 0666);
    return file < 0 && !alone ? ::open(name.constData(), O_RDONLY | O_CLOEXEC) : file;
}
qintptr open_locked(const QString& path, bool alone) {
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
void close_file(qintptr file) {
    ::close(int(file));
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
