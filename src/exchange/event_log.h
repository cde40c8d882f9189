#pragma once

// What a side program did, a line an event with the time in front.

#include <QElapsedTimer>
#include <QFile>
#include <QString>
#include <chrono>

namespace exchange {

class EventLog {
public:
    /// Appends to the file; an empty path, or a file that can't be opened, means the standard error output.
    explicit EventLog(const QString& path = QString());

    /// Handed to the system when this returns. A line that can't be written is lost without a word.
    void line(const QString& text);

    /// A line that anybody in the network can cause. Where many come in a short time, only their number is written, so
    /// that nobody can fill the disk.
    void line_from_outside(const QString& text);

private:
    void write(const QString& text);

    QFile m_file;
    QElapsedTimer m_clock;
    std::chrono::milliseconds m_paid_until; ///< each line from outside pays for some time; some may be in debt
    int m_left_out = 0;
};

} // namespace exchange
