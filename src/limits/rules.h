#pragma once

// The limits that a company keeps to: figures that begin as the law has them and can be changed, what of the month's
// hours and days they are counted from, and who isn't counted.

#include "base/system_number.h"
#include "base/time.h"

#include <QHash>
#include <QSet>
#include <array>
#include <span>

namespace limits {

enum class Figure {
    OvertimeMonth,    ///< hours
    OvertimeYear,     ///< hours, without the special clause
    SpecialYear,      ///< hours, with it
    SpecialMonths,    ///< months of a year above OvertimeMonth, with it
    AllMonth,         ///< hours, work on holidays too; less than it is allowed
    AllAverage,       ///< hours a month, work on holidays too, over the last 2 to 6 months
    ShortWork,        ///< hours; a longer day needs ShortBreak
    ShortBreak,       ///< minutes
    LongWork,         ///< hours; a longer day needs LongBreak
    LongBreak,        ///< minutes
    LeaveDays,        ///< days a year
    NearPercent,      ///< from so much of a limit on a figure is near it
    OvertimeYearFrom, ///< the month, 1 to 12, in which the year of the hours begins
    LeaveYearFrom,    ///< and that of the leave
};
inline constexpr int figure_count = 14;

/// What a figure is on the screen and in the tables. A limit of 0 isn't looked at.
struct FigureRow {
    QStringView key; ///< in `rov_kihon`
    QStringView caption;
    QStringView unit;
    int usual; ///< as the law has it, where it has one
    int least;
    int most;
    QStringView source; ///< law and article; empty where it is this system's own
};
std::span<const FigureRow, figure_count> figure_rows();
inline const FigureRow& row_of(Figure figure) {
    return figure_rows()[size_t(figure)];
}

/// As what a work category counts.
enum class Counts { Not, Overtime, HolidayWork };

struct Rules {
    Rules();

    std::array<int, figure_count> figures; ///< the usual ones
    bool special = false;                  ///< the company's agreement has a special clause
    QHash<qint64, Counts> categories;      ///< by work category; those that don't count aren't in it
    QHash<qint64, int> leave;              ///< half days of leave that a day of the kind counts: 1 or 2
    QSet<base::EmployeeKey> free_hours;    ///< whose hours and breaks aren't looked at
    QSet<base::EmployeeKey> free_leave;    ///< whose leave isn't looked at

    int operator[](Figure figure) const { return figures[size_t(figure)]; }
    base::minutes hours(Figure figure) const { return std::chrono::hours((*this)[figure]); }
    friend bool operator==(const Rules&, const Rules&) = default;
};

} // namespace limits
