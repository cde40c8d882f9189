#pragma once

// The days that a save stores under keys under which this screen doesn't find them again: those in January of a month
// that begins in December.

#include "base/settings.h"
#include "entry/sheet.h"

namespace entry {

/// Whether the row is such a day, and was typed.
bool is_not_read_back(const MonthSheet& sheet, int r);

/// These days as a sheet of their own: a heading, then a row a day with its date, as dates are shown, and what the
/// month shows of it once it is calculated. The heading alone if there are none.
base::Sheet days_not_read_back(MonthSheet sheet, const base::Settings& settings, QDate today);

} // namespace entry
