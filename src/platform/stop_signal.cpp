#include "platform/stop_signal.h"

#include <QtGlobal>
#include <array>
#include <utility>

#ifdef Q_OS_WIN
#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <QWinEventNotifier>
#include <windows.h>
#else
#include <QSocketNotifier>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace platform {

#ifdef Q_OS_WIN

namespace {

/// Set when the end is wished for, also before anybody listens.
HANDLE wish() {
    static const HANDLE event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    return event;
}

/// Called in a thread of the system's own. When it returns from one of the last three the process is ended, so it waits
/// for that to come by itself; the system has only so much patience.
BOOL WINAPI wake(DWORD kind) {
    StopSignal::give();
    if (kind == CTRL_CLOSE_EVENT || kind == CTRL_LOGOFF_EVENT || kind == CTRL_SHUTDOWN_EVENT)
        Sleep(INFINITE);
    return TRUE;
}

/// Hears the wish, and the message by which a program without windows is asked to end.
class Ear : public QWinEventNotifier, public QAbstractNativeEventFilter {
public:
    Ear() : QWinEventNotifier(wish()) { QCoreApplication::instance()->installNativeEventFilter(this); }

    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override {
        const auto& told = *static_cast<const MSG*>(message);
        const bool end = told.message == WM_CLOSE && told.hwnd == nullptr;
        if (end)
            StopSignal::give();
        return end;
    }
};

} // namespace

void StopSignal::give() {
    SetEvent(wish());
}

StopSignal::StopSignal(std::function<void()> on_stop) {
    auto ear = std::make_unique<Ear>();
    QObject::connect(ear.get(), &QWinEventNotifier::activated, ear.get(), std::move(on_stop));
    m_notifier = std::move(ear);
    SetConsoleCtrlHandler(wake, TRUE);
}

StopSignal::~StopSignal() {
    SetConsoleCtrlHandler(wake, FALSE);
}

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

void StopSignal::give() {
    wake(0);
}

StopSignal::StopSignal(std::function<void()> on_stop) {
    if (::pipe2(wake_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto notifier = std::make_unique<QSocketNotifier>(wake_pipe[0], QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(), [stop = std::move(on_stop)] {
        for (char byte; ::read(wake_pipe[0], &byte, 1) == 1;) {
        }
        stop();
    });
    m_notifier = std::move(notifier);
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
