#pragma once

// The folders of an install tree and the files that are copied into it.

#include "base/settings.h"
#include "install/options.h"

#include <functional>

namespace install {

/// Told what is done, a line each.
using Say = std::function<void(const QString&)>;

// What can't be made, read or written throws std::runtime_error, which names it; what was done by then stays.

/// Makes the folders that are missing; the shared ones only where the shared data lies in this tree.
void make_folders(const base::Settings& settings, bool shared);

/// Brings pictures and help pages up to date from each folder of `sources` in order, all of which are there; what one
/// of them hasn't got is passed over. Files of the tree that no source has stay.
void copy_assets(const QStringList& sources, const base::Settings& settings, const Say& say);

/// Brings the programs up to date from the folder that holds them; one that isn't there is told and left out.
void copy_programs(const QString& source, const base::Settings& settings, bool shared, const Say& say);

} // namespace install
