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

constexpr auto tail_below_drive = "/Program Files/meridan/qn";

#ifdef Q_OS_WIN
constexpr bool windows = true;
#else
constexpr bool windows = false;
#endif

} // namespace

QString program_folder() {
#ifdef Q_OS_WIN
    std::array<wchar_t, 32768> path{};
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), DWORD(path.size()));
    return QFileInfo(QString::fromWCharArray(path.data(), int(length))).path();
#else
    const QString program = QFile::symLinkTarget(u"/proc/self/exe"_s);
    return program.isEmpty() ? QString() : QFileInfo(program).path();
#endif
}

QString install_tail() {
    return (windows ? u":"_s : QString()) + native(QString::fromLatin1(tail_below_drive));
}

QString install_drive(const QString& program_folder) {
    if (windows)
        return program_folder.left(1);
    for (QDir dir(program_folder);;) {
        if (QFileInfo(dir.path() + QString::fromLatin1(tail_below_drive)).isDir())
            return drive_at(dir.path());
        if (!dir.cdUp())
            return program_folder;
    }
}

QString drive_root(const QString& install_drive) {
    return native(install_drive + (windows ? u":/"_s : u"/"_s));
}

QString drive_at(const QString& folder) {
    const QDir place(QDir(folder).absolutePath());
    if (windows)
        return place.path().left(1);
    return place.isRoot() ? QString() : place.path();
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
