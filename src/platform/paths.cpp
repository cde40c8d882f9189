#include "platform/paths.h"

#include "base/literals.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#ifdef Q_OS_WIN
#include <array>
#include <windows.h>
#endif

namespace platform {

using namespace base;

namespace {

constexpr auto install_tail = "/Program Files/meridan/qn";

#ifdef Q_OS_WIN
constexpr bool windows = true;
#else
constexpr bool windows = false;
#endif

/// The folder that a drive stands for, without a separator at its end.
QString folder_of(const QString& drive) {
    return windows && drive.size() == 1 ? drive + u':' : portable(drive);
}

} // namespace

QString program_path() {
#ifdef Q_OS_WIN
    std::array<wchar_t, 32768> path{};
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), DWORD(path.size()));
    return portable(QString::fromWCharArray(path.data(), int(length)));
#else
    return QFile::symLinkTarget(u"/proc/self/exe"_s);
#endif
}

QString program_folder() {
    const QString program = program_path();
    return program.isEmpty() ? QString() : QFileInfo(program).path();
}

QString install_root(const QString& install_drive) {
    return native(folder_of(install_drive) + QString::fromLatin1(install_tail));
}

QString install_drive(const QString& program_folder) {
    for (QDir dir(program_folder);;) {
        if (QFileInfo(dir.path() + QString::fromLatin1(install_tail)).isDir())
            return drive_at(dir.path());
        if (!dir.cdUp())
            return windows ? program_folder.left(1) : program_folder;
    }
}

QString drive_root(const QString& install_drive) {
    return native(folder_of(install_drive) + u'/');
}

QString drive_at(const QString& folder) {
    const QDir place(QDir(folder).absolutePath());
    if (!place.isRoot())
        return place.path();
    return windows ? place.path().left(1) : QString();
}

QString native(const QString& path) {
    return QDir::toNativeSeparators(path);
}

QString portable(const QString& path) {
    return QString(path).replace(u'\\', u'/');
}

QString program_file(const QString& exe_path) {
    return !windows && exe_path.endsWith(u".exe"_s) ? exe_path.chopped(4) : exe_path;
}

bool is_share(const QString& root) {
    return root.contains(u"\\\\"_s) || (!windows && root.startsWith(u"//"_s));
}

} // namespace platform
