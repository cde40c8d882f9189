#pragma once

// This program as a service of Windows. Whether it was started as one the system tells: there is no option for it.

#include <thread>

namespace platform {

class Service {
public:
    /// Answers the service control from now on, where that started this process: the service runs. When it is to stop,
    /// StopSignal is told. Anywhere else nothing happens. One Service a process.
    Service();
    /// The service has stopped.
    ~Service();
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;

private:
    std::thread m_control;
};

} // namespace platform
