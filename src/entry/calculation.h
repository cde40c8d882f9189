#pragma once

// The day calculation: a day's two clock times are measured against the bands of its weekday, which gives the figure of
// each work category, the break and the work time. All in whole minutes, nothing is rounded. The month's sums follow at
// once, so that a change of one cell leaves the whole sheet consistent.

#include "entry/sheet.h"

namespace entry {

/// Calculates the day of a sheet row, then the month.
/// Reads which cell was edited from `entry_cell`: only columns 2 to 4 start a calculation, and a break typed by hand
/// (column 4) stands instead of the break rules. Clock cells of 24:00 and beyond or with minutes above 59 are blanked,
/// and so is the break when both are blank.
/// A row that is no day of the month changes nothing else, and the month isn't summed.
///
///   bands 8:30-17:30 (from 6:00 0:45 break, from 8:00 1:00) and 17:30-22:00, clock 8:15 to 19:00
///                           // categories "9:00" and "1:30", break "1:00", work time "9:45"
///
/// What to know of it:
/// - A category's figure is overwritten, not added to: of two bands of one category the later one stands.
/// - A band's break rules are tried in order and the last one reached wins; the breaks of all bands are summed.
/// - With BreakHandling::Deducted a break is taken off column 7 + band number, whatever category stands there; past the
///   sheet's edge nothing is taken off.
/// - Work time is the whole stay less the break; the bands don't matter to it.
void 出勤集計処理(MonthSheet& sheet, int r);

/// The same as if the cell in this column of the row had been edited and left; the cell in hand stays.
void calculate_day(MonthSheet& sheet, int r, int edited_column);

} // namespace entry
