#include "entry/tally.h"

#include "base/literals.h"
#include "common/count_tag.h"
#include "entry/cells.h"

namespace entry {

using namespace base;

namespace {

constexpr int all_days = 0;

void add_one(QString& count) {
    count = digits(Val(count) + 1);
}

QString tag_of_day(const MonthSheet& sheet, int r) {
    const bool leave = Val(sheet.hyou_system(r, record::holiday_work)) == 0;
    return (leave ? common::leave_letter : common::holiday_work_letter) + sheet.hyou_system(r, record::kind_number);
}

void blank_counts(base::Sheet& hyou_day) {
    for (int column = 0; column < hyou_day.Cols(); ++column)
        hyou_day(strip::count, column).clear();
}

void blank_kind_counts(base::Sheet& hyou_day) {
    for (int column = 0; column < hyou_day.Cols(); ++column)
        if (common::is_kind_tag(hyou_day(strip::tag, column)))
            hyou_day(strip::count, column).clear();
}

void count_kind(MonthSheet& sheet, int r, bool first_column_only) {
    const QString tag = tag_of_day(sheet, r);
    for (int column = 0; column < sheet.hyou_day.Cols(); ++column) {
        if (sheet.hyou_day(strip::tag, column) != tag)
            continue;
        add_one(sheet.hyou_day(strip::count, column));
        if (first_column_only)
            return;
    }
}

int last_period_row(const base::Sheet& hyou) {
    for (int r = row::last_day; r >= 28; --r)
        if (!hyou(r, col::day).isEmpty())
            return r;
    return row::last_day;
}

void stamp_day_without_work(MonthSheet& sheet, int r) {
    if (!sheet.hyou(r, col::work_time).isEmpty() || Val(sheet.hyou_system(r, record::kind_number)) != 0 ||
        Val(sheet.hyou(r, col::day)) == 0)
        return;
    sheet.hyou_system(r, record::kind_number) = sheet.kind_without_work.number;
    sheet.hyou_system(r, record::kind_name) = sheet.kind_without_work.name;
    sheet.mark(r) = u"1"_s;
    sheet.hyou(r, col::kind) = sheet.kind_without_work.name;
}

void count_days(MonthSheet& sheet) {
    QString& worked = sheet.hyou_day(strip::count, strip::worked_column);
    for (int r = row::first_day; r <= row::last_day; ++r) {
        if (!sheet.hyou(r, col::work_time).isEmpty())
            add_one(worked);
        stamp_day_without_work(sheet, r);
        休暇出勤日計算処理(sheet, r);
    }
    sheet.hyou_day(strip::count, strip::unworked_column) = digits(last_period_row(sheet.hyou) - Val(worked));
}

/// Kind tags read as 0, so that only a bare category column can match.
std::optional<int> column_of_category(const MonthSheet& sheet, int category) {
    for (int column = strip::first_kind; column < sheet.hyou_day.Cols(); ++column)
        if (Val(sheet.hyou_day(strip::tag, column)) == category)
            return column;
    return std::nullopt;
}

void sum_column(MonthSheet& sheet, int column) {
    sheet.hyou(row::total, column) = sum_of_days(sheet, column);
}

void add_days(QString& count, int days) {
    count = digits(Val(count) + days);
}

void count_category(MonthSheet& sheet, int column) {
    const int category = category_of(sheet, column);
    const auto stripColumn = category == 0 ? std::nullopt : column_of_category(sheet, category);
    if (!stripColumn)
        return;
    int days = 0;
    for (int r = row::first_day; r <= row::last_day; ++r)
        days += sheet.hyou(r, column).isEmpty() ? 0 : 1;
    if (days > 0)
        add_days(sheet.hyou_day(strip::count, *stripColumn), days);
}

} // namespace

void tally_month(MonthSheet& sheet) {
    blank_counts(sheet.hyou_day);
    sum_column(sheet, col::break_time);
    count_days(sheet);
    sum_column(sheet, col::work_time);
    for (int column = col::first_category; column < sheet.hyou.Cols(); ++column) {
        sum_column(sheet, column);
        count_category(sheet, column);
    }
}

QString sum_of_days(const MonthSheet& sheet, int column) {
    minutes sum(0);
    for (int r = row::first_day; r <= row::last_day; ++r)
        sum += minutes_of(sheet.hyou(r, column));
    return time_to_cell(minutes_to_time(sum));
}

void 休暇出勤日計算処理(MonthSheet& sheet, int r) {
    if (r != all_days)
        return count_kind(sheet, r, /*first_column_only=*/true);
    blank_kind_counts(sheet.hyou_day);
    for (int day = row::first_day; day <= row::last_day; ++day)
        count_kind(sheet, day, /*first_column_only=*/false);
}

} // namespace entry
