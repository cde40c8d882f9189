#pragma once

// The password of the share, which doesn't belong on a command line: every other person of the machine reads that.

#include "install/options.h"
#include "install/tree.h"

namespace install {

/// Completes the options with the password: out of the file that they name, whose first line it is, or asked on the
/// terminal for an account without one; where nobody is there to ask it stays empty. `warn` is told where it stood on
/// the command line. Throws std::runtime_error for a file that can't be read or holds none, and where the person breaks
/// off.
void complete_password(Options& options, const Say& warn);

} // namespace install
