#pragma once

// The wish of the operating system that a program end: SIGTERM, SIGINT or SIGHUP, told inside the event loop, so that
// the program can finish what it has in hand. Where there are no such signals nothing is ever told.

#include <functional>
#include <memory>

class QSocketNotifier;

namespace platform {

class StopSignal {
public:
    /// Needs a running event loop. One StopSignal a process; the signals have their usual effect again when it goes.
    explicit StopSignal(std::function<void()> on_stop);
    ~StopSignal();
    StopSignal(const StopSignal&) = delete;
    StopSignal& operator=(const StopSignal&) = delete;

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace platform
