#pragma once

// What a day's two clock times give, as a value: the minutes in each band, the rule that gave each break, what was
// taken off, and the texts of the row's cells that follow from them. The calculation writes these texts into the sheet,
// and whoever explains a figure or looks for something off reads the same value: what is explained is what was counted.

#include "entry/sheet.h"

namespace entry {

/// From the clock-in to the clock-out, whose minutes lie above 24:00 on the next day. A blank clock cell counts as
/// 0:00, so that a clock-in without a clock-out stays until midnight.
struct Stay {
    base::minutes clockIn{0};
    base::minutes clockOut{0};
    base::minutes length() const { return clockOut - clockIn; }
};

/// A band of the weekday whose category has a column on the sheet.
struct BandFigure {
    int number = 0;             ///< `連番`, the slot in `band_table`
    int column = 0;             ///< of `hyou`, where the category's figure stands
    base::minutes inside{0};    ///< of the stay, before any break
    bool stands = true;         ///< false: a later band of the category gave the figure instead
    std::optional<int> rule{};  ///< the break rule that was reached last, 0 to 2; nothing if none or if it wasn't asked
    base::minutes pause{0};     ///< the break that the rule gave
    std::optional<int> taken{}; ///< the column that the break was taken off
};

struct DayFigures {
    Stay stay;
    QList<BandFigure> bands;  ///< in order of their numbers
    base::minutes outside{0}; ///< minutes of the stay that lie in no band
    base::minutes breakTotal{0};
    base::minutes workMinutes{0}; ///< the stay less the break; negative where the break is longer

    QStringList categories; ///< the texts of the category columns, from col::first_category on
    QString break_time;     ///< the text of the break's cell
    QString work_time;      ///< the text of the work time's cell; empty for no work
};

/// Whence a day has its break.
enum class BreakFrom {
    Rules, ///< the bands' break rules
    Cell,  ///< typed by hand into its cell
};

/// The figures of a sheet row that is a day, from its clock cells and the schedule. Categories that have no band on the
/// weekday keep the text that they have, and so does the break's cell where no rule was asked.
DayFigures day_figures(const MonthSheet& sheet, int r, BreakFrom break_from);

} // namespace entry
