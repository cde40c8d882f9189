#pragma once

// Waiting for another program's end: its window title stands for it (see platform/program_lock.h).

#include "platform/host.h"

namespace common {

enum class Wait { Ended, StillRunning };

/// Waits until no program of this title runs in the folder, asking once a second with the interface running; gives up
/// after 15 seconds. At once where none runs. Throws platform::LockError where it can't be told.
Wait ウィンドウ終了待ち(platform::Host& host, const QString& title, const QString& folder);

} // namespace common
