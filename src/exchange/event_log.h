#pragma once

// What a side program did, a line an event with the time in front.

#include <QFile>
#include <QString>

namespace exchange {

class EventLog {
public:
    /// Appends to the file; an empty path, or a file that can't be opened, means the standard error output.
    explicit EventLog(const QString& path = QString());

    void line(const QString& text);

private:
    QFile m_file;
};

} // namespace exchange
