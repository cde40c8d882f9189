#pragma once

// Who may read and write what a program makes. Files of a company belong to several people: one that takes the place of
// another must stay open to the same ones, and a new one to all who share the folder. On Windows, where a file has the
// rights of its folder, all of it does nothing.

#include <QString>

namespace platform {

/// Gives a new file that is open the owner, group and mode of the one at the path, as far as this person may, and
/// lets its owner write; nothing where there is none.
void take_rights(int new_file, const QString& from);

/// Whether everybody who may write the one file may write the other; both are there.
bool same_people_write(const QString& present, const QString& coming);

/// From now on this program makes files for those who share the folder: in one that hands its group down the group may
/// do with them what it may do in the folder, and nobody else. Other folders change nothing. A folder that is yet to be
/// made is like the nearest one upwards.
void make_files_for(const QString& folder);

} // namespace platform
