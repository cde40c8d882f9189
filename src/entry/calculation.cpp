#include "entry/calculation.h"

#include "base/literals.h"
#include "base/text.h"
#include "entry/cells.h"
#include "entry/day_figures.h"
#include "entry/tally.h"

#include <utility>

namespace entry {

using namespace base;

namespace {

bool starts_calculation(int column) {
    return column >= col::clock_in && column <= col::break_time;
}

void blank_impossible_clock(QString& cell) {
    const QString four = last_four(text_to_time(cell));
    const qint64 hours = Val(QStringView(four).first(2));
    const qint64 past_hour = Val(QStringView(four).last(2));
    if (hours < 0 || hours >= 24 || past_hour < 0 || past_hour >= 60)
        cell.clear();
}

void check_clock_cells(MonthSheet& sheet, int r) {
    if (sheet.entry_cell.col == col::break_time)
        return;
    blank_impossible_clock(sheet.hyou(r, col::clock_in));
    blank_impossible_clock(sheet.hyou(r, col::clock_out));
}

/// A day without clock times keeps no break of the times that it had; one that is typed by hand stands.
void blank_break_without_clock(MonthSheet& sheet, int r) {
    const bool no_clock = sheet.hyou(r, col::clock_in).isEmpty() && sheet.hyou(r, col::clock_out).isEmpty();
    if (no_clock && sheet.entry_cell.col != col::break_time)
        sheet.hyou(r, col::break_time).clear();
}

void write(MonthSheet& sheet, int r, const DayFigures& day) {
    for (int i = 0; i < day.categories.size(); ++i)
        sheet.hyou(r, col::first_category + i) = day.categories[i];
    sheet.hyou(r, col::break_time) = day.break_time;
    sheet.hyou(r, col::work_time) = day.work_time;
}

void set_kind(MonthSheet& sheet, int r, const DayKind& kind, const QString& mark) {
    sheet.hyou(r, col::kind) = kind.name;
    sheet.hyou_system(r, record::kind_number) = kind.number;
    sheet.hyou_system(r, record::kind_name) = kind.name;
    sheet.mark(r) = mark;
}

/// `休出` stays when a day is cleared, so that a day that had work and gets work again keeps no kind by itself.
void settle_kind(MonthSheet& sheet, int r) {
    QString& holiday_work = sheet.hyou_system(r, record::holiday_work);
    if (sheet.hyou(r, col::work_time).isEmpty()) {
        set_kind(sheet, r, {}, {});
    } else if (Val(holiday_work) == 0) {
        set_kind(sheet, r, sheet.kind_with_work, u"1"_s);
        holiday_work = u"1"_s;
    }
}

} // namespace

void 出勤集計処理(MonthSheet& sheet, int r) {
    if (!starts_calculation(sheet.entry_cell.col))
        return;
    check_clock_cells(sheet, r);
    if (!is_day(sheet, r))
        return;
    blank_break_without_clock(sheet, r);
    const bool by_hand = sheet.entry_cell.col == col::break_time;
    write(sheet, r, day_figures(sheet, r, by_hand ? BreakFrom::Cell : BreakFrom::Rules));
    settle_kind(sheet, r);
    tally_month(sheet);
}

void calculate_day(MonthSheet& sheet, int r, int edited_column) {
    const Cell in_hand = std::exchange(sheet.entry_cell, {r, edited_column});
    出勤集計処理(sheet, r);
    sheet.entry_cell = in_hand;
}

} // namespace entry
