#pragma once

// One run of rovena-install.

#include "install/tree.h"

namespace install {

/// Makes or completes the install tree: folders, the databases that don't exist, artwork, help, and the programs that
/// lie in `program_folder`, and writes the options into the settings they stand for. Without assets folders in the
/// options the usual ones beside the programs are taken. A tree whose data lies elsewhere gets the PC's own part only.
/// Throws store::Error or std::runtime_error, also for an option that can't be followed, all else being done; what is
/// done by then stays, and a further run completes it.
void run(const Options& options, const QString& program_folder, const Say& say);

} // namespace install
