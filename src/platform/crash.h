#pragma once

// What is left of a crash for those who look for its reason.

#include <QString>

namespace platform {

/// From now on a crash of this program on Windows leaves "PROGRAM-20261124-213405.dmp" in the folder: the stacks of its
/// threads, which a debugger reads, and not the data that it held. In a folder that isn't there, and elsewhere, where
/// the system has a way of its own, nothing is left.
void leave_dump_in(const QString& folder);

} // namespace platform
