#pragma once

// The wish of the operating system that a program end, told inside the event loop, so that the program can finish what
// it has in hand: SIGTERM, SIGINT or SIGHUP; on Windows Ctrl-C, a console that closes, a session that ends, or a
// service that is stopped (service.h).

#include <functional>
#include <memory>

class QObject;

namespace platform {

class StopSignal {
public:
    /// Needs a running event loop. One StopSignal a process; the signals have their usual effect again when it goes.
    explicit StopSignal(std::function<void()> on_stop);
    ~StopSignal();
    StopSignal(const StopSignal&) = delete;
    StopSignal& operator=(const StopSignal&) = delete;

    /// Wishes for the end as the operating system does, from any thread.
    static void give();

private:
    std::unique_ptr<QObject> m_notifier;
};

} // namespace platform
