#include "common/program_wait.h"

namespace common {

using namespace std::chrono_literals;

Wait ウィンドウ終了待ち(platform::Host& host, const QString& title, const QString& folder) {
    const auto limit = host.steady_now() + 15s;
    while (host.program_running(title, folder)) {
        host.wait(1s);
        if (host.steady_now() >= limit)
            return Wait::StillRunning;
    }
    return Wait::Ended;
}

} // namespace common
