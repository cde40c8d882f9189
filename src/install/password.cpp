#include "install/password.h"

#include "base/literals.h"
#include "platform/paths.h"
#include "platform/terminal.h"

#include <QFile>
#include <QStringDecoder>
#include <stdexcept>

namespace install {

using namespace base;

namespace {

/// UTF-8, or what the mark at its beginning tells: editors of Windows write one.
QString text_of(const QByteArray& bytes) {
    return QStringDecoder(QStringConverter::encodingForData(bytes).value_or(QStringConverter::Utf8))(bytes);
}

QString first_line(const QString& path) {
    QFile file(path);
    QString line;
    if (file.open(QIODevice::ReadOnly))
        line = text_of(file.readAll()).section(u'\n', 0, 0).remove(u'\r');
    if (line.isEmpty())
        throw std::runtime_error(u"%1: no password can be read there"_s.arg(platform::native(path)).toStdString());
    return line;
}

} // namespace

void complete_password(Options& options, const Say& warn) {
    if (!options.share_password.isEmpty())
        warn(u"--share-password lets everybody on this machine read the password: give --share-password-file"_s);
    else if (!options.share_password_file.isEmpty())
        options.share_password = first_line(options.share_password_file);
    else if (!options.share_user.isEmpty())
        options.share_password =
            platform::ask_secret(u"password of %1 for the share: "_s.arg(options.share_user)).value_or(QString());
}

} // namespace install
