#pragma once

// Fill: the blank days of a month get their clock times in one act, from the standard times of the work type, from the
// days above or from the week before. What was typed is never overwritten.

#include "entry/sheet.h"

#include <QStringList>
#include <bitset>

namespace entry {

enum class FillSource {
    StandardTimes,       ///< from the begin of the normal day's first band to the end of its last one
    DayAbove,            ///< the nearest day above that has times: over a weekend it is Friday
    SameWeekdayLastWeek, ///< the row seven above
};

/// Rows of `hyou`, both included.
struct RowRange {
    int first;
    int last;
};

/// Days of the week, 0 Sunday to 6 Saturday.
using Weekdays = std::bitset<7>;
inline constexpr Weekdays every_weekday{0b1111111};

/// The bands that a normal day begins and ends with, by their numbers.
struct NormalDay {
    int last = 0;  ///< 0: not known, and no day is filled from standard times
    int first = 0; ///< 0: the first one that the weekday has
    friend bool operator==(const NormalDay&, const NormalDay&) = default;
};

/// A band that can be marked as the one that begins or ends a normal day.
struct BandChoice {
    int number;   ///< `連番`
    QString text; ///< as the first weekday from Monday on has it: "1 普通 8:30～17:30"
};

/// The bands of the work type by their numbers; empty without a work type.
QList<BandChoice> band_choices(const MonthSheet& sheet);

/// What is proposed before they are marked: the longest band, of equal ones the first, begins and ends the day. Blank
/// without a work type.
NormalDay proposed_day(const MonthSheet& sheet);

/// Fills the blank days of the rows, or without rows those of the month whose weekday has bands; the days above first,
/// so that a filled day serves as the one above. Gives back how many days were filled.
/// Each is calculated with the breaks of the rules and marked as changed; the cell in hand stays. Days that wait for
/// their calculation are calculated before.
/// - Blank is a day without times, figures or a break, and without a kind that was chosen; the standard kind that the
///   calculation gives by itself, and a remark, don't count.
/// - Nothing is filled in where the source has no times or only one of them, from before the month's first row, and
///   with standard times on a weekday that lacks a band of the normal day. Rows that are no days take nothing.
/// - Without rows, only these days of the week are filled.
int fill(MonthSheet& sheet, FillSource source, NormalDay normal, std::optional<RowRange> rows = {},
    Weekdays weekdays = every_weekday);

} // namespace entry
