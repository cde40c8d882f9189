#pragma once

// A database that is made anew beside a `rovdata.mdb` which a company has filled: what it has to hold so that the
// company's data stands. A product without its row would get the first-start wizard, which replaces the masters, and
// counters that begin at 1 would give numbers that are in use.

#include "base/settings.h"
#include "store/database.h"

namespace install {

/// Whether `rovdata.mdb` is there and has a row in one of the masters. Throws store::Error for one that can't be read.
bool holds_masters(const base::Settings& settings);

/// Fills a new `comsys.mdb` from `rovdata.mdb`, which is there: its employees, and each counter at the highest number
/// in use. Settings that were in the lost file aren't known any more. Writes in the transaction of the caller.
void carry_on(store::Database& comsys, const base::Settings& settings);

/// Registers the product in an `allsystem.mdb` that is there, if there are masters.
void register_if_filled(const base::Settings& settings);

} // namespace install
