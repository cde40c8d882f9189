#include "platform/share.h"

#include "base/literals.h"
#include "platform/paths.h"

#include <QDir>
#ifdef Q_OS_WIN
#include <windows.h>
#include <winnetwk.h>
#else
#include <QProcess>
#endif

namespace platform {

using namespace base;

#ifdef Q_OS_WIN

namespace {

/// Nothing stands for the account of the person who is logged in.
const wchar_t* given(const QString& text) {
    return text.isEmpty() ? nullptr : reinterpret_cast<const wchar_t*>(text.utf16());
}

} // namespace

bool connect_share(const QString& share, const QString& user, const QString& password) {
    QString remote = native(share);
    NETRESOURCEW resource{};
    resource.dwScope = RESOURCE_GLOBALNET;
    resource.dwType = RESOURCETYPE_DISK;
    resource.lpRemoteName = reinterpret_cast<wchar_t*>(remote.data());
    return WNetAddConnection2W(&resource, given(password), given(user), CONNECT_UPDATE_PROFILE) == NO_ERROR ||
           QDir(remote).exists(); // connected already, perhaps with an account of the person's own
}

#else

namespace {

constexpr int mount_patience = 15'000; // milliseconds

/// The folder stands before the mount as well, so what has to lie in it is looked for.
bool shared_data_there(const QString& folder) {
    return QDir(folder + u"/comdata"_s).exists();
}

void mount(const QString& folder) {
    QProcess process;
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(u"mount"_s, {folder});
    if (!process.waitForFinished(mount_patience))
        process.kill();
}

} // namespace

bool connect_share(const QString& share, const QString&, const QString&) {
    const QString folder = QDir::cleanPath(portable(share));
    if (shared_data_there(folder))
        return true;
    if (QDir(folder).exists())
        mount(folder);
    return shared_data_there(folder);
}

#endif

} // namespace platform
