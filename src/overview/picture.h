#pragma once

// The overview as a sheet: an employee a row, a day a column, the sums at the right. What a cell says is a colour and a
// word of two characters at most, and in its tip what is off.

#include "base/public_holidays.h"
#include "overview/month_look.h"
#include "overview/month_of_all.h"

namespace overview {

/// Columns of the sheet; the work categories of the master follow from first_category on.
namespace column {
inline constexpr int number = 0;
inline constexpr int name = 1;
inline constexpr int first_day = 2; ///< of the month's first day; 31 columns, without width past the month's end
inline constexpr int worked = first_day + 31;
inline constexpr int leave = worked + 1;
inline constexpr int holiday_work = worked + 2;
inline constexpr int work_time = worked + 3;
inline constexpr int off = worked + 4;   ///< how many things are off
inline constexpr int limit = worked + 5; ///< which limit of hours, breaks or leave is near, in a word
inline constexpr int first_category = worked + 6;
} // namespace column

/// Rows with the days of the month and of the week; the employees' rows begin behind them.
inline constexpr int heading_rows = 2;

/// The row of the company month that a column stands for; nothing for a column that is no day.
std::optional<int> day_row(int col);

/// What a state of a day, or of its cell, is called and looks like.
struct Legend {
    QStringView caption;
    base::Rgb back;
};
std::span<const Legend> legends();

struct Frame {
    base::CompanyMonth month{2000, 1, 1};
    base::OwnHolidays own_holidays;
    UsualKinds usual;
    QList<CategoryName> categories;
};

/// A row of the picture. `look` is null while nobody has looked at the employee's month yet.
struct PictureRow {
    const EmployeeMonth* employee;
    const EmployeeLook* look;
    QString limit{}; ///< the word of limits::overview_words
};

/// How the cells of days are written: for the eye and paper two characters of a kind, for a file its whole name.
enum class Words { Short, Whole };

/// Makes the sheet anew; the cursor and what is in view stay where they can.
void draw(base::Sheet& hyou, const Frame& frame, std::span<const PictureRow> rows, Words words = Words::Short);

} // namespace overview
