#include "platform/whole_file.h"

#include "base/literals.h"

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

std::error_code last_error() {
    return {int(GetLastError()), std::system_category()};
}

bool flush_to_disk(QFile& file) {
    return _commit(file.handle()) == 0;
}

std::error_code rename_to_new(const QString& from, const QString& to, Durability) {
    const DWORD write_through = MOVEFILE_WRITE_THROUGH;
    if (MoveFileExW(qUtf16Printable(from), qUtf16Printable(to), write_through) != 0)
        return {};
    return GetLastError() == ERROR_ALREADY_EXISTS ? std::make_error_code(std::errc::file_exists) : last_error();
}

#else

std::error_code last_error() {
    return {errno, std::generic_category()};
}

bool flush_to_disk(QFile& file) {
    return fsync(file.handle()) == 0;
}

void flush_folder(const QString& path) {
    const int folder = open(QFile::encodeName(QFileInfo(path).path()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return;
    fsync(folder);
    close(folder);
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

std::error_code rename_to_new(const QString& from, const QString& to, Durability durability) {
    if (!rename_unless_there(QFile::encodeName(from), QFile::encodeName(to)))
        return last_error();
    if (durability == Durability::Disk)
        flush_folder(to);
    return {};
}

#endif

std::error_code write_all(QFile& file, const QByteArray& bytes, Durability durability) {
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        return last_error();
    if (file.write(bytes) != bytes.size() || (durability == Durability::Disk && !flush_to_disk(file)))
        return last_error();
    file.close();
    return {};
}

} // namespace

std::error_code write_new_file(const QString& path, const QByteArray& bytes, Durability durability) {
    QFile beside(path + u"."_s + QUuid::createUuid().toString(QUuid::Id128).left(12) + u".new"_s);
    std::error_code failure = write_all(beside, bytes, durability);
    if (!failure)
        failure = rename_to_new(beside.fileName(), path, durability);
    if (failure)
        beside.remove();
    return failure;
}

} // namespace platform
