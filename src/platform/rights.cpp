#include "platform/rights.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#ifndef Q_OS_WIN
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace platform {

bool same_people_write(const QString& present, const QString& coming) {
    const QFileInfo old_file(present), new_file(coming);
    const bool same_group = old_file.groupId() == new_file.groupId();
    if (old_file.permission(QFile::WriteOther))
        return new_file.permission(QFile::WriteOther);
    if (old_file.permission(QFile::WriteGroup))
        return same_group && new_file.permission(QFile::WriteGroup); // the owner is one of the group
    return old_file.ownerId() == new_file.ownerId();
}

#ifdef Q_OS_WIN

void take_rights(int, const QString&) {}
void make_files_for(const QString&) {}

#else

namespace {

constexpr mode_t all_rights = 0777;
constexpr mode_t owner_writes = 0600; // or the new file couldn't be filled

} // namespace

void take_rights(int new_file, const QString& from) {
    struct stat present {};
    if (stat(QFile::encodeName(from).constData(), &present) != 0)
        return;
    // Only the administrator gives a file away; a group is given by whoever belongs to it. Another group may do no more
    // than everybody.
    const bool given =
        fchown(new_file, present.st_uid, present.st_gid) == 0 || fchown(new_file, uid_t(-1), present.st_gid) == 0;
    const mode_t rights = present.st_mode & all_rights;
    fchmod(new_file, (given ? rights : (rights & ~S_IRWXG) | (rights & S_IRWXO) << 3) | owner_writes);
}

void make_files_for(const QString& folder) {
    QFileInfo nearest(QDir(folder).absolutePath());
    while (!nearest.exists())
        nearest.setFile(nearest.path());
    struct stat shared {};
    if (stat(QFile::encodeName(nearest.filePath()).constData(), &shared) == 0 && (shared.st_mode & S_ISGID) != 0)
        umask(~shared.st_mode & all_rights);
}

#endif

} // namespace platform
