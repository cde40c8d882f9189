#include "platform/screen.h"

#include "base/literals.h"

#include <QCryptographicHash>
#include <QStandardPaths>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace platform {

using namespace base;

#ifdef Q_OS_WIN

bool screen_is_there() {
    return true;
}

void go_on_without_screen() {}

QString own_folder() {
    return QStandardPaths::writableLocation(QStandardPaths::TempLocation);
}

/// All people of a PC have their pipes in one place: the person's folder goes into the name.
QString own_address(const QString& folder, const QString& name) {
    const QByteArray digest = QCryptographicHash::hash(folder.toUtf8(), QCryptographicHash::Sha256);
    return name + u'-' + QString::fromLatin1(digest.toHex().first(16));
}

/// Windows lets a program come up only with the leave of the one that was started last.
void let_others_come_up() {
    AllowSetForegroundWindow(ASFW_ANY);
}

#else

bool screen_is_there() {
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

/// The last platform of the list serves where those before it fail.
void go_on_without_screen() {
    const QByteArray wanted = qgetenv("QT_QPA_PLATFORM");
    const QByteArray usual = qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ? "wayland;xcb" : "xcb";
    qputenv("QT_QPA_PLATFORM", (wanted.isEmpty() ? usual : wanted) + ";offscreen");
}

QString own_folder() {
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
}

QString own_address(const QString& folder, const QString& name) {
    return folder + u'/' + name;
}

void let_others_come_up() {}

#endif

} // namespace platform
