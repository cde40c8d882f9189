#include "entry/month_load.h"

#include "base/text.h"
#include "entry/cells.h"

#include <algorithm>

namespace entry {

namespace {

constexpr minutes midnight = std::chrono::hours(24);

/// The day keys of the month and its total's: with start day 1 the total's follows the last day's, and with a later one
/// it lies between two days. So one range finds both.
struct KeyRange {
    int first;
    int last;
};

KeyRange days_and_total(const CompanyMonth& month) {
    const int totalKey = month.total_key();
    return {month.start_key(), std::max(month.end_key(), totalKey)};
}

/// A duration or clock field as cell text; an empty field stays empty.
QString time_field(const store::Row& fields, int column) {
    return time_to_text(fields.text(column));
}

QString without_zero(const QString& text) {
    return text == u"0:00" ? QString() : text;
}

QString clock_out_text(const store::Row& fields, int column) {
    const minutes time = time_to_minutes(ClockNumber{fields.number(column)});
    return time > midnight ? time_to_text(minutes_to_time(time - midnight)) : time_field(fields, column);
}

/// Columns: 出社時間, 退社時間, 休憩時間, 勤務時間, 備考 from column 1 on.
void show_day(base::Sheet& hyou, int r, const store::Row& fields) {
    if (r != row::total) {
        const QString in = time_field(fields, 1);
        const QString out = clock_out_text(fields, 2);
        const bool no_clock = in == out && out == u"0:00";
        hyou(r, col::clock_in) = no_clock ? QString() : in;
        hyou(r, col::clock_out) = no_clock ? QString() : out;
    }
    hyou(r, col::break_time) = without_zero(time_field(fields, 3));
    hyou(r, col::work_time) = without_zero(time_field(fields, 4));
    hyou(r, col::remark) = Trim(fields.text(5));
}

void load_days(MonthSheet& sheet, store::Database& database, qint64 employee) {
    auto query = database.prepare("select 出社日, 出社時間, 退社時間, 休憩時間, 勤務時間, 備考 from rovmei"
                                  " where 社員システム番号 = ? and 出社日 between ? and ? order by 出社日");
    const KeyRange keys = days_and_total(sheet.month);
    query.bind(employee, keys.first, keys.last);
    while (query.step())
        if (const auto r = sheet.month.row_of_key(query.row().integer(0)))
            show_day(sheet.hyou, *r, query.row());
}

void load_hours(MonthSheet& sheet, store::Database& database, qint64 employee) {
    auto query = database.prepare("select 年月日, 勤務種類, 時間 from kinjisyu"
                                  " where 社員システム番号 = ? and 年月日 between ? and ? order by 年月日");
    const KeyRange keys = days_and_total(sheet.month);
    query.bind(employee, keys.first, keys.last);
    while (query.step()) {
        const auto r = sheet.month.row_of_key(query.row().integer(0));
        const auto column = category_column(sheet, query.row().integer(1));
        if (r && column)
            sheet.hyou(*r, *column) = without_zero(time_field(query.row(), 2));
    }
}

QString tag_of_count(qint64 number, qint64 family) {
    const QString prefix = family == 1 ? u"k"_s : family == 2 ? u"s"_s : QString();
    return prefix + digits(number);
}

void show_count(base::Sheet& hyou_day, const QString& tag, qint64 days) {
    for (int column = 0; column < hyou_day.Cols(); ++column) {
        if (Trim(hyou_day(strip::tag, column)) != tag)
            continue;
        if (days != 0)
            hyou_day(strip::count, column) = grouped(days);
        return;
    }
}

void load_counts(MonthSheet& sheet, store::Database& database, qint64 employee) {
    auto query = database.prepare("select システム番号, 休暇残業, 日数１ from kinnisu"
                                  " where 社員システム番号 = ? and 年月 = ?");
    query.bind(employee, sheet.month.month_key());
    while (query.step()) {
        const store::Row fields = query.row();
        show_count(sheet.hyou_day, tag_of_count(fields.number(0), fields.number(1)), fields.number(2));
    }
}

void load_kinds(MonthSheet& sheet, store::Database& database, qint64 employee) {
    auto query = database.prepare("select 年月日, システム番号, 休暇名, 休出 from kyumei"
                                  " where 社員システム番号 = ? and 年月日 between ? and ? order by 年月日");
    query.bind(employee, sheet.month.start_key(), sheet.month.end_key());
    while (query.step()) {
        const store::Row fields = query.row();
        const auto r = sheet.month.row_of_key(fields.integer(0));
        if (!r)
            continue;
        sheet.hyou_system(*r, record::kind_number) = fields.text(1);
        sheet.hyou_system(*r, record::kind_name) = Trim(fields.text(2));
        sheet.hyou_system(*r, record::holiday_work) = Trim(fields.text(3));
        sheet.hyou(*r, col::kind) = sheet.hyou_system(*r, record::kind_name);
    }
}

} // namespace

void 勤務時間取得(MonthSheet& sheet, store::Database& database, qint64 employee) {
    load_days(sheet, database, employee);
    load_hours(sheet, database, employee);
    load_counts(sheet, database, employee);
    load_kinds(sheet, database, employee);
    sheet.entry_cell = {row::first_day, col::clock_in};
}

void trim_strip(base::Sheet& hyou_day) {
    int last = hyou_day.Cols() - 1;
    while (last >= strip::first_kind && hyou_day(strip::name, last).isEmpty())
        --last;
    if (last >= 1)
        hyou_day.setCols(last + 1);
}

} // namespace entry
