#include "exchange/event_log.h"

#include "base/literals.h"

#include <QDateTime>
#include <cstdio>

namespace exchange {

using namespace base;

EventLog::EventLog(const QString& path) : m_file(path) {
    if (!path.isEmpty() && m_file.open(QIODevice::Append))
        return;
    const QString trouble = path.isEmpty() ? QString() : m_file.errorString();
    if (m_file.open(stderr, QIODevice::WriteOnly) && !trouble.isEmpty())
        line(u"記録ファイル %1 を開けません: %2"_s.arg(path, trouble));
}

void EventLog::line(const QString& text) {
    const QString time = QDateTime::currentDateTime().toString(u"yyyy-MM-dd hh:mm:ss.zzz"_s);
    m_file.write((time + u' ' + text + u'\n').toUtf8());
    m_file.flush();
}

} // namespace exchange
