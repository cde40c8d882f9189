#pragma once

// The month's figures: hours a column into row 32, days a kind and a category into the count strip. They are derived:
// each calculation builds them all anew. After a load the strip shows the saved figures, and what is typed over them
// lasts until the next calculation.

#include "entry/sheet.h"

namespace entry {

/// Sums columns 4, 5 and the category columns over rows 1 to 31 into row 32, and counts the days in the strip.
/// Every day of the period without work and without a kind becomes the default for days without work, and is marked
/// changed.
void tally_month(MonthSheet& sheet);

/// What the days' cells of a column of times add up to, as the total's cell shows it.
QString sum_of_days(const MonthSheet& sheet, int column);

/// Counts the kind of one row's day into the strip; for row 0 counts the kinds of all days anew.
void 休暇出勤日計算処理(MonthSheet& sheet, int r);

} // namespace entry
