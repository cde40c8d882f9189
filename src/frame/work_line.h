#pragma once

// Long work of a page, as the frame's status line shows it: what is being done, how far it is, and a button that
// cancels it. While it runs nothing else of the frame takes input, and the window stays.

#include "platform/host.h"

#include <QElapsedTimer>
#include <QString>
#include <functional>

namespace frame {

class WorkLine {
public:
    /// How often work that tells how far it is lets the interface run.
    static constexpr std::chrono::milliseconds breath{50};

    explicit WorkLine(platform::Host& host) : m_host(host) {}

    /// Puts the work into the line for as long as it lives.
    class Running {
    public:
        Running(WorkLine& line, const QString& what) : m_line(line) { m_line.begin(what); }
        ~Running() { m_line.end(); }
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;

    private:
        WorkLine& m_line;
    };

    /// The work is at `done` of `total`; a total of 0 isn't known yet. Lets the interface run at the beginning and then
    /// every `breath`. False from the moment on that the person has cancelled.
    bool advance(qint64 done, qint64 total);

    /// The person wants the work to end.
    void cancel() { m_cancelled = true; }

    bool running() const { return m_running; }
    const QString& what() const { return m_what; }
    int percent() const { return m_percent; } ///< 0 to 100; -1 while the total isn't known

    /// Called when what the line shows has changed.
    std::function<void()> changed;
    /// Lets the person reach the cancel button, after the interface has painted. Unset: nobody can cancel.
    std::function<void()> take_input;

private:
    void begin(const QString& what);
    void end();
    void breathe();

    platform::Host& m_host;
    QElapsedTimer m_since_breath; ///< invalid before the first one
    QString m_what;
    int m_percent = -1;
    bool m_running = false;
    bool m_cancelled = false;
};

} // namespace frame
