#pragma once

// Going back to a backup: a folder of one weekday is looked through, checked, and its databases are put in the place of
// the present ones, which stay beside them under a name with the time.

#include "install/options.h"
#include "install/tree.h"
#include "store/database.h"

#include <QDateTime>

namespace install {

/// Says what the folder holds: of each database the time of the copy and the rows of every table, of the attendance the
/// employees and months. Every database is read whole. Throws store::Error for one that isn't in order, and
/// std::runtime_error for a folder that is no backup: one without databases, or with some of the shared ones only.
void list_backup(const QString& folder, const Say& say);

/// The same, and then puts the databases into the tree of the root, whose folders are made if they aren't there.
/// Nothing is changed before all copies are beside their places and checked, and each place is filled with one step: a
/// restore that is broken off leaves whole databases, and the next one completes it. The settings of the PC are made to
/// name this tree, as the place of the data too unless they alone are restored on a PC whose data lies elsewhere.
/// Throws std::runtime_error while the program runs on this data, of other trees while it is connected to its server,
/// or if shared databases are to go to a PC whose data lies elsewhere, and store::Error (Code::Busy) where another
/// program writes for longer than `patience`.
void restore_backup(const Restore& restore, const QDateTime& now, const Say& say,
    std::chrono::milliseconds patience = store::default_patience);

} // namespace install
