#pragma once

// How many files and sockets this process may have open at a time.

namespace platform {

/// Sees to it that there may be `wanted`, as far as the system allows. How many there may be, `wanted` at most.
int room_for_files(int wanted);

} // namespace platform
