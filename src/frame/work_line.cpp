#include "frame/work_line.h"

#include <algorithm>

namespace frame {

void WorkLine::begin(const QString& what) {
    m_what = what;
    m_percent = -1;
    m_running = true;
    m_cancelled = false;
    m_since_breath.invalidate();
    breathe();
}

void WorkLine::end() {
    m_running = false;
    if (changed)
        changed();
}

bool WorkLine::advance(qint64 done, qint64 total) {
    m_percent = total > 0 ? static_cast<int>(std::clamp<qint64>(done * 100 / total, 0, 100)) : -1;
    if (!m_cancelled && (!m_since_breath.isValid() || m_since_breath.hasExpired(breath.count())))
        breathe();
    return !m_cancelled;
}

void WorkLine::breathe() {
    if (changed)
        changed();
    m_host.yield();
    if (take_input)
        take_input();
    m_since_breath.start();
}

} // namespace frame
