#pragma once

// One run of rovena-install.

#include "install/tree.h"

namespace install {

/// Makes or completes the install tree: folders, the databases that don't exist, artwork, help, and the programs that
/// lie in `program_folder`. Without assets folders in the options the usual ones beside the programs are taken.
/// Throws store::Error or std::runtime_error; what is done by then stays, and a further run completes it.
void run(const Options& options, const QString& program_folder, const Say& say);

} // namespace install
