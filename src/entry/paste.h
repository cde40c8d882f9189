#pragma once

// Paste: text copied from a spreadsheet, a line a day, read into the days from the cell in hand downwards. First a
// preview of what was understood, which writes nothing; then the act that lays it over the sheet.

#include "entry/sheet.h"

namespace entry {

struct PasteCell {
    enum class State {
        New,           ///< the cell of the sheet is empty
        Same,          ///< it holds this already, or nothing was pasted for it: it stays
        Replaces,      ///< it holds something else
        NotUnderstood, ///< it stays as it is
    };
    base::Cell cell;    ///< of `hyou`; below the month's last day or right of the remarks where there is no such cell
    QString pasted;     ///< as it came
    QString understood; ///< what would stand in the cell; empty if it stays
    State state = State::NotUnderstood;
    QString reason{}; ///< why it wasn't understood, or what of it doesn't stand
};

/// What a text would do to the sheet, line by line.
struct PastePreview {
    QList<PasteCell> cells;
    QString refused;     ///< why nothing can be pasted at the cell in hand; then there are no cells
    int changes() const; ///< how many cells it would fill or replace
};

/// Columns are parted by tabs and go into clock-in, clock-out, break and remark, beginning with that of the cell in
/// hand. Times are read in half and full width:
///   "8:30", "830", "08:30:00", "8時30分", "8時"   // 8:30, and 8:00; seconds are dropped, nothing is rounded
///   "25:30" as a clock-out                       // 1:30, the small hours after; "24:00" is 0:00
///   "45" as a break                              // 0:45; as a clock time it may be meant either way and isn't read
/// A cell within quotation marks may hold line breaks, which become blanks. Empty text has no cells.
PastePreview preview_paste(const MonthSheet& sheet, const QString& text);

/// Lays a preview of this sheet over it and gives back how many days changed. Each is marked; one that got times is
/// calculated, with the pasted break, else with the breaks of the rules. Days that wait for their calculation are
/// calculated before. The cell in hand stays.
int paste(MonthSheet& sheet, const PastePreview& preview);

} // namespace entry
