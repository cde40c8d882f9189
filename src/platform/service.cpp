#include "platform/service.h"

#include "platform/stop_signal.h"

#include <QtGlobal>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace platform {

#ifdef Q_OS_WIN

namespace {

constexpr DWORD patience = 30'000; ///< milliseconds that the system gives the service for its end

SERVICE_STATUS_HANDLE place;

HANDLE ended() {
    static const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    return event;
}

void tell(DWORD state) {
    SERVICE_STATUS status{};
    status.dwServiceType = SERVICE_WIN32_OWN_PROCESS;
    status.dwCurrentState = state;
    status.dwControlsAccepted = state == SERVICE_RUNNING ? SERVICE_ACCEPT_STOP | SERVICE_ACCEPT_SHUTDOWN : 0;
    status.dwWaitHint = state == SERVICE_STOP_PENDING ? patience : 0;
    SetServiceStatus(place, &status);
}

DWORD WINAPI control(DWORD what, DWORD, void*, void*) {
    if (what == SERVICE_CONTROL_STOP || what == SERVICE_CONTROL_SHUTDOWN) {
        tell(SERVICE_STOP_PENDING);
        StopSignal::give();
        return NO_ERROR;
    }
    return what == SERVICE_CONTROL_INTERROGATE ? NO_ERROR : ERROR_CALL_NOT_IMPLEMENTED;
}

/// The service's own thread. The work is done in the main thread, as anywhere.
void WINAPI be_service(DWORD, wchar_t**) {
    place = RegisterServiceCtrlHandlerExW(L"", control, nullptr);
    tell(SERVICE_RUNNING);
    WaitForSingleObject(ended(), INFINITE);
    tell(SERVICE_STOPPED);
}

/// Returns at once where the service control didn't start this process.
void answer_control() {
    wchar_t no_name[] = L"";
    const SERVICE_TABLE_ENTRYW services[]{{no_name, be_service}, {nullptr, nullptr}};
    StartServiceCtrlDispatcherW(services);
}

} // namespace

Service::Service() : m_control(answer_control) {}

Service::~Service() {
    SetEvent(ended());
    m_control.join();
}

#else

Service::Service() = default;
Service::~Service() = default;

#endif

} // namespace platform
