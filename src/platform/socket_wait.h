#pragma once

#include <QtGlobal>
#include <chrono>

namespace platform {

/// Waits until something comes on the socket, or it can take more to send where that is wanted, or it has failed. False
/// if nothing of that happens for so long.
bool socket_ready(qintptr socket, bool to_send, std::chrono::milliseconds patience);

} // namespace platform
