#pragma once

// Making a share of another PC reachable.

#include <QString>

namespace platform {

/// Makes the files of the share reachable under its own name, with this account. False if they can't be reached.
///
/// On Windows the system connects it; a share whose folder can be entered anyway counts. Elsewhere "\\main\rovena" is
/// the folder /main/rovena, into which the share has to be mounted by the system's own client, since only that one
/// passes file locks on to the other PCs: a share that is mounted already counts, and one that the system's table of
/// mounts lets a person mount is mounted with the account that the table tells.
bool connect_share(const QString& share, const QString& user, const QString& password);

} // namespace platform
