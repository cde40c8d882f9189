#include "platform/stop_signal.h"

#include <QSocketNotifier>
#include <array>
#include <utility>

#ifndef Q_OS_WIN
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace platform {

#ifdef Q_OS_WIN

StopSignal::StopSignal(std::function<void()>) {}
StopSignal::~StopSignal() = default;

#else

namespace {

constexpr std::array signals{SIGTERM, SIGINT, SIGHUP};

// A signal handler may do little more than write to a pipe, and has no other way to know which one.
std::array<int, 2> wake_pipe{-1, -1};

void wake(int) {
    const char byte = 0;
    [[maybe_unused]] const auto written = ::write(wake_pipe[1], &byte, 1);
}

void handle_with(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (const int signal : signals)
        ::sigaction(signal, &action, nullptr);
}

} // namespace

StopSignal::StopSignal(std::function<void()> on_stop) {
    if (::pipe2(wake_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(wake_pipe[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [stop = std::move(on_stop)] {
        for (char byte; ::read(wake_pipe[0], &byte, 1) == 1;) {
        }
        stop();
    });
    handle_with(wake);
}

StopSignal::~StopSignal() {
    if (!m_notifier)
        return;
    handle_with(SIG_DFL);
    m_notifier.reset();
    for (int& end : wake_pipe)
        ::close(std::exchange(end, -1));
}

#endif

} // namespace platform
