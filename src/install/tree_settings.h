#pragma once

// The settings that options stand for: those of the PC in `losys.mdb`, and those that all PCs share in `comsys.mdb`,
// which may lie in the tree of another PC.

#include "install/options.h"
#include "install/tree.h"

namespace install {

struct Setting {
    QString key;
    QString value;
};

/// The settings of the PC that the options give a value.
QList<Setting> settings_of_pc(const Options& options);

/// Where the shared data of the tree lies, if that is another place than the tree: as the options say, else as its
/// settings do. Empty for data in the tree, or if nothing says where.
QString other_place_of_data(const Options& options);

/// Writes what the options say and the tree doesn't yet, into `losys.mdb`, which is there, and tells each. Throws
/// store::Error.
void set_pc(const Options& options, const Say& say);

/// The same with the shared settings, wherever they lie. A main PC without a name for the turn service gets this
/// machine's own; that this can't be written is only told. Throws std::runtime_error, naming the options, where the
/// shared data can't be reached or written.
void set_shared(const Options& options, const Say& say);

/// Tells all of them as they stand. Throws store::Error for a database that can't be read.
void list_settings(const QString& root, const Say& say);

} // namespace install
