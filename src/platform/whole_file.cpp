#include "platform/whole_file.h"

#include "base/literals.h"
#include "platform/paths.h"
#include "platform/rights.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUuid>

#ifdef Q_OS_WIN
#include <io.h>
#include <windows.h>
#else
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace platform {

using namespace base;

namespace {

#ifdef Q_OS_WIN

const wchar_t* wide(const QString& text) {
    return reinterpret_cast<const wchar_t*>(text.utf16());
}

std::error_code last_error() {
    return {int(GetLastError()), std::system_category()};
}

/// What looks at new files (a virus scanner, an index) has them open for a moment, and no such file can be renamed.
bool renamed_in_time(const QString& from, const QString& to, DWORD flags) {
    constexpr int tries = 50;
    constexpr DWORD pause = 20; // milliseconds
    for (int i = 1; MoveFileExW(wide(from), wide(to), flags) == 0; ++i) {
        const DWORD failure = GetLastError();
        if (i == tries || (failure != ERROR_SHARING_VIOLATION && failure != ERROR_ACCESS_DENIED))
            return false;
        Sleep(pause);
    }
    return true;
}

std::error_code rename_file(const QString& from, const QString& to, Standing standing) {
    const DWORD flags = MOVEFILE_WRITE_THROUGH | (standing == Standing::GivesWay ? MOVEFILE_REPLACE_EXISTING : 0);
    if (renamed_in_time(native(from), native(to), flags))
        return {};
    return GetLastError() == ERROR_ALREADY_EXISTS ? std::make_error_code(std::errc::file_exists) : last_error();
}

bool flush_file(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly) && _commit(file.handle()) == 0;
}

void flush_folder_of(const QString&) {}

#else

std::error_code last_error() {
    return {errno, std::generic_category()};
}

/// Not every file system of a share knows the rename that refuses an existing name.
bool rename_unless_there(const QByteArray& from, const QByteArray& to) {
    if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS)
        return false;
    if (access(to.constData(), F_OK) == 0) {
        errno = EEXIST;
        return false;
    }
    return rename(from.constData(), to.constData()) == 0;
}

std::error_code rename_file(const QString& from, const QString& to, Standing standing) {
    const QByteArray old_name = QFile::encodeName(from);
    const QByteArray new_name = QFile::encodeName(to);
    const bool renamed = standing == Standing::Stays ? rename_unless_there(old_name, new_name)
                                                     : rename(old_name.constData(), new_name.constData()) == 0;
    return renamed ? std::error_code() : last_error();
}

bool flush_file(const QString& path) {
    const int file = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return false;
    const bool flushed = fsync(file) == 0;
    close(file);
    return flushed;
}

void flush_folder_of(const QString& path) {
    flush_file(QFileInfo(path).path());
}

#endif

/// Qt may have called the system again since the failure; a failure is never told as success.
std::error_code failure_of_file() {
    const std::error_code last = last_error();
    return last ? last : std::make_error_code(std::errc::io_error);
}

} // namespace

NewFile::NewFile(const QString& path)
    : m_path(path), m_passing(path + u"."_s + QUuid::createUuid().toString(QUuid::Id128).left(12) + u".new"_s) {}

NewFile::~NewFile() {
    if (m_made)
        QFile::remove(m_passing);
}

std::error_code NewFile::make() {
    QFile file(m_passing);
    m_made = file.open(QIODevice::WriteOnly | QIODevice::NewOnly);
    if (!m_made)
        return failure_of_file();
    take_rights(file.handle(), m_path);
    return {};
}

std::error_code NewFile::flush() const {
    return flush_file(m_passing) ? std::error_code() : last_error();
}

std::error_code NewFile::place(Durability durability, Standing standing) {
    if (durability == Durability::Disk)
        if (const std::error_code failure = flush())
            return failure;
    if (const std::error_code failure = rename_file(m_passing, m_path, standing))
        return failure;
    m_made = false;
    if (durability == Durability::Disk)
        flush_folder_of(m_path);
    return {};
}

std::error_code rename_over(const QString& from, const QString& to) {
    const std::error_code failure = rename_file(from, to, Standing::GivesWay);
    if (!failure)
        flush_folder_of(to);
    return failure;
}

void remove_leftovers(const QString& path) {
    const QFileInfo file(path);
    QDir folder(file.path());
    for (const QString& left : folder.entryList({file.fileName() + u".*.new"_s}, QDir::Files | QDir::Hidden))
        folder.remove(left);
}

namespace {

std::error_code write_beside(const QString& path, const QByteArray& bytes, Durability durability, Standing standing) {
    NewFile beside(path);
    if (const std::error_code failure = beside.make())
        return failure;
    QFile file(beside.passing_path());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || file.write(bytes) != bytes.size())
        return failure_of_file();
    file.close();
    return beside.place(durability, standing);
}

} // namespace

std::error_code write_new_file(const QString& path, const QByteArray& bytes, Durability durability) {
    return write_beside(path, bytes, durability, Standing::Stays);
}

std::error_code replace_file(const QString& path, const QByteArray& bytes, Durability durability) {
    return write_beside(path, bytes, durability, Standing::GivesWay);
}

} // namespace platform
