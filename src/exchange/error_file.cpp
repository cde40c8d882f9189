#include "exchange/error_file.h"

#include "base/literals.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace exchange {

using namespace base;

bool add_error_line(const QString& path, const QString& message) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::Append))
        return false;
    const QString time = QDateTime::currentDateTime().toString(u"yyyy/MM/dd hh:mm:ss"_s);
    const QByteArray line = u"\"%1 %2\"\n"_s.arg(time, message.simplified()).toUtf8();
    return file.write(line) == line.size() && file.flush();
}

} // namespace exchange
