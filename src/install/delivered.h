#pragma once

// What a new database holds when it is delivered: the eras, the row that stands for the whole company, the settings
// that a PC's setup writes, and on request the made-up company.

#include "install/options.h"
#include "store/database.h"

namespace install {

/// Writes the rows that a new database of this kind starts with; the kind is one of the four delivered ones. Beside
/// masters that a company has already the new one fits them (install/standing.h).
void deliver(store::Database& database, store::Kind kind, const Options& options);

} // namespace install
