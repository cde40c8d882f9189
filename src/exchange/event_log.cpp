#include "exchange/event_log.h"

#include "base/literals.h"

#include <QDateTime>
#include <algorithm>
#include <cstdio>
#include <utility>

namespace exchange {

using namespace base;
using namespace std::chrono_literals;

namespace {

constexpr std::chrono::milliseconds price = 100ms; ///< of a line from outside, in the long run
constexpr auto debt = 1000 * price;                ///< for a company whose PCs all come at once

} // namespace

EventLog::EventLog(const QString& path) : m_file(path), m_paid_until(-debt) {
    m_clock.start();
    if (!path.isEmpty() && m_file.open(QIODevice::Append))
        return;
    const QString trouble = path.isEmpty() ? QString() : m_file.errorString();
    if (m_file.open(stderr, QIODevice::WriteOnly) && !trouble.isEmpty())
        line(u"記録ファイル %1 を開けません: %2"_s.arg(path, trouble));
}

void EventLog::line(const QString& text) {
    if (m_left_out > 0)
        write(u"記録を%1行省きました"_s.arg(std::exchange(m_left_out, 0)));
    write(text);
}

void EventLog::line_from_outside(const QString& text) {
    const std::chrono::milliseconds now(m_clock.elapsed());
    if (m_paid_until > now) {
        ++m_left_out;
        return;
    }
    m_paid_until = std::max(m_paid_until, now - debt) + price;
    line(text);
}

void EventLog::write(const QString& text) {
    const QString time = QDateTime::currentDateTime().toString(u"yyyy-MM-dd hh:mm:ss.zzz"_s);
    m_file.write((time + u' ' + text + u'\n').toUtf8());
    m_file.flush();
}

} // namespace exchange
