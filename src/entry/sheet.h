#pragma once

// MonthSheet: one employee, one company month, as four tables of text cells and the schedule that they are measured
// against. It is the one state of attendance entry; loading, calculation, tally, editing and saving are free functions
// over it, a file each, and none of them needs a display.
//
// All cells hold text. Times in cells are time text; the conversions of base/time.h are used at each reading.

#include "base/company_month.h"
#include "base/sheet.h"
#include "base/time.h"
#include "base/work_week.h"

#include <QList>
#include <array>
#include <optional>

namespace entry {

/// Rows of `hyou`. Rows 33 to 39 are never used; a day row whose column 0 is blank is past the end of the period.
namespace row {
inline constexpr int heading = 0;
inline constexpr int first_day = 1;
inline constexpr int last_day = 31;
inline constexpr int total = base::total_row;
inline constexpr int category_number = 40; ///< hidden: the number of each column's work category
inline constexpr int count = 41;
} // namespace row

/// Columns of `hyou`; from first_category on one column a work category.
namespace col {
inline constexpr int day = 0;
inline constexpr int weekday = 1;
inline constexpr int clock_in = 2;  ///< "出社時間"
inline constexpr int clock_out = 3; ///< "退社時間"
inline constexpr int break_time = 4;
inline constexpr int work_time = 5;
inline constexpr int remark = 6;
inline constexpr int kind = 7;
inline constexpr int first_category = 8;
} // namespace col

/// Columns of `hyou_system`, the hidden record beside each row of `hyou`.
namespace record {
inline constexpr int kind_number = 0;  ///< `kyutype` number of the day's kind; empty or 0 is none
inline constexpr int kind_name = 1;    ///< its name
inline constexpr int mark = 2;         ///< `day_mark`: "" unchanged, "1" changed, "2" to be calculated and changed
inline constexpr int holiday_work = 3; ///< `休出` of the kind: 0 is leave, else holiday work
} // namespace record

/// Rows and fixed columns of the count strip `hyou_day`.
namespace strip {
inline constexpr int name = 0;
inline constexpr int tag = 1; ///< "-1", "-2", "s" or "k" and a kind's number, or a bare category number
inline constexpr int count = 2;
inline constexpr int worked_column = 0;
inline constexpr int unworked_column = 1;
inline constexpr int first_kind = 2;
} // namespace strip

/// `kyuflg`: whether the figure of a category keeps the break inside it.
enum class BreakHandling {
    Included = 0, ///< "休憩時間含"
    Deducted = 1, ///< "実働勤務時間"
};

/// "Work of this length or more has this break"; threshold 0 is no rule.
struct BreakRule {
    base::minutes threshold{0}; ///< `休憩勤務時間n`
    base::minutes pause{0};     ///< `休憩時間n`
};

/// One band of a weekday's schedule. An unused slot is all zero.
struct Band {
    QString name{};                  ///< `種類名` of the category
    base::minutes start{0};          ///< `開始時間`
    base::minutes end{0};            ///< `終了時間`, a day later if its number is below the start's
    bool counts_from_inside = false; ///< `時間計算` 1: it counts only if the clock-in lies in it
    int category = 0;                ///< `時間種類`
    std::array<BreakRule, 3> rules{};
};

inline constexpr int band_slots = base::band_count + 1; ///< by `連番`; slot 0 stays empty
inline constexpr int category_room = 101;               ///< slots of `category_list`

struct Category {
    int number = 0;
    QString name;
};

/// A day kind as it stands in cells; both texts are empty where the company has set no default.
struct DayKind {
    QString number;
    QString name;
};

struct MonthSheet {
    base::Sheet hyou{row::count, col::first_category}; ///< the month as the person sees it
    base::Sheet hyou_system{row::count, 4};            ///< the hidden record, row for row beside `hyou`
    base::Sheet hyou_day{3, 10};                       ///< the count strip
    base::CompanyMonth month{2000, 1, 1};              ///< the month that the rows of `hyou` stand for

    std::array<std::array<Band, band_slots>, base::weekday_count> band_table{};
    QList<Category> category_list; ///< in order of first appearance in the schedule

    /// `default_day_kind`: what a day becomes by itself, without work (values 0 and 1) and with work (values 2 and 3).
    DayKind kind_without_work;
    DayKind kind_with_work;

    BreakHandling kyuflg = BreakHandling::Included;

    base::Cell entry_cell{row::first_day, col::clock_in}; ///< the cell last entered
    /// A clock cell that was left for column 7 with its day still to be calculated; the next time cell sees to it.
    std::optional<base::Cell> pending_cell;

    QString& mark(int r) { return hyou_system(r, record::mark); }
    const QString& mark(int r) const { return hyou_system(r, record::mark); }
};

} // namespace entry
