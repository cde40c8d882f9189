#include "base/text.h"
#include "common/count_tag.h"
#include "entry/cells.h"
#include "entry/saving.h"

#include "base/literals.h"

namespace entry {

using namespace base;

namespace {

QString number_text(ClockNumber clock) {
    return digits(clock.value);
}

ClockNumber clock_out_past_midnight(ClockNumber in, ClockNumber out) {
    return minutes_to_time(end_minutes(in, out));
}

/// Kind "51", for `rovmei`. The month's total has no clock times.
ExchangeRow attendance_row(
    const base::Sheet& hyou, const PostedEmployee& employee, const ChangedDay& day, const QString& stamp) {
    const bool total = day.row == row::total;
    const ClockNumber in = total ? ClockNumber{} : clock_of(hyou(day.row, col::clock_in));
    const ClockNumber out = total ? ClockNumber{} : clock_of(hyou(day.row, col::clock_out));
    const QString date = digits(day.date_key);
    return {u"51"_s, u"0"_s, stamp, stamp, employee.number, digits(employee.key), employee.name, u"0"_s, date,
        number_text(in), date, number_text(clock_out_past_midnight(in, out)),
        number_text(clock_of(hyou(day.row, col::break_time))), number_text(clock_of(hyou(day.row, col::work_time))),
        Trim(hyou(day.row, col::remark))};
}

/// Kind "52", for `kinjisyu`: empty cells as well, so that hours taken away go.
ExchangeRow hours_row(const MonthSheet& sheet, const PostedEmployee& employee, const ChangedDay& day, int column) {
    return {u"52"_s, digits(day.date_key), digits(employee.key), digits(category_of(sheet, column)),
        number_text(clock_of(sheet.hyou(day.row, column))), digits(column)};
}

/// Kind "53", for `kinnisu`.
ExchangeRow count_row(const PostedEmployee& employee, int month_key, const common::CountTag& tag, qint64 days) {
    return {u"53"_s, digits(month_key), digits(employee.key), digits(tag.number), digits(tag.family), digits(days),
        u"0"_s, u"0"_s};
}

/// Kind "54", for `kyumei`.
ExchangeRow kind_row(const base::Sheet& hyou_system, const PostedEmployee& employee, const ChangedDay& day) {
    return {u"54"_s, digits(day.date_key), digits(employee.key), digits(Val(hyou_system(day.row, record::kind_number))),
        Trim(hyou_system(day.row, record::kind_name)), Trim(hyou_system(day.row, record::holiday_work))};
}

void add_counts(QList<ExchangeRow>& rows, const MonthSheet& sheet, const PostedEmployee& employee) {
    for (int column = 0; column < sheet.hyou_day.Cols(); ++column) {
        const QString tag = Trim(sheet.hyou_day(strip::tag, column));
        const qint64 days = count_of(sheet.hyou_day(strip::count, column));
        if (!tag.isEmpty() && days != 0)
            rows << count_row(employee, sheet.month.month_key(), common::CountTag::read(tag), days);
    }
}

void add_kinds(
    QList<ExchangeRow>& rows, const MonthSheet& sheet, const PostedEmployee& employee, const QList<ChangedDay>& days) {
    for (const ChangedDay& day : days)
        if (day.row != row::total && Val(sheet.mark(day.row)) != 0)
            rows << kind_row(sheet.hyou_system, employee, day);
}

} // namespace

PostedEmployee posted_employee(const QString& syalab, const QString& syainsyscd) {
    const auto colon = syalab.indexOf(u':');
    if (colon < 0)
        return {syalab, QString(), Val(syainsyscd)};
    return {syalab.first(colon), syalab.sliced(colon + 1), Val(syainsyscd)};
}

QList<ChangedDay> changed_days(const MonthSheet& sheet) {
    QList<ChangedDay> days;
    for (int r = row::first_day; r <= sheet.month.length(); ++r)
        if (!Trim(sheet.mark(r)).isEmpty())
            days.append({r, sheet.month.posting_key(r)});
    if (!days.isEmpty())
        days.append({row::total, sheet.month.total_key()});
    return days;
}

QList<ExchangeRow> rows_to_post(const MonthSheet& sheet, const PostedEmployee& employee, const QString& stamp) {
    const QList<ChangedDay> days = changed_days(sheet);
    QList<ExchangeRow> rows;
    if (days.isEmpty())
        return rows;
    for (const ChangedDay& day : days)
        rows << attendance_row(sheet.hyou, employee, day, stamp);
    for (const ChangedDay& day : days)
        for (int column = col::first_category; column < sheet.hyou.Cols(); ++column)
            rows << hours_row(sheet, employee, day, column);
    add_counts(rows, sheet, employee);
    add_kinds(rows, sheet, employee, days);
    return rows;
}

} // namespace entry
