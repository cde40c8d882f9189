#include "platform/socket_wait.h"

#ifdef Q_OS_WIN
#include <winsock2.h>
#else
#include <poll.h>
#endif

namespace platform {

bool socket_ready(qintptr socket, bool to_send, std::chrono::milliseconds patience) {
    pollfd waiting{};
    waiting.fd = decltype(waiting.fd)(socket);
    waiting.events = short(POLLIN | (to_send ? POLLOUT : 0));
#ifdef Q_OS_WIN
    return WSAPoll(&waiting, 1, int(patience.count())) != 0;
#else
    return poll(&waiting, 1, int(patience.count())) != 0;
#endif
}

} // namespace platform
