#include "reports/tallies/attendance_detail.h"

#include "base/columns.h"
#include "base/era.h"
#include "base/literals.h"
#include "base/month_look.h"
#include "base/numbers.h"
#include "base/text.h"
#include "reports/tallies/attendance_detail_read.h"
#include "reports/tallies/selection.h"

namespace reports {

using namespace base;

namespace {

constexpr int strip_rows = 3;
constexpr int strip_cols = 10;

constexpr Column columns[] = {
    {u"日", 400, Alignment::Center},
    {u"曜", 400, Alignment::Center},
    {u"出勤時間", 1000, Alignment::Center},
    {u"退社時間", 1000, Alignment::Center},
    {u"休憩時間", 1000, Alignment::Center},
    {u"勤務時間", 1000, Alignment::Center},
    {u"備考", 1500},
    {u"休暇", Sheet::default_col_width, Alignment::Center},
};
static_assert(std::size(columns) == detail::first_category);

/// The year and month as long text, under the display setting; where no era is in force, the bare digits of the date.
QString month_label(const CompanyMonth& month, const frame::Session& session) {
    const QString first = digits(month.month_key() * 100 + 1);
    const QString text = 日付文字変換(first, session.settings, session.host.now().date());
    return text.contains(u'月') ? text.left(text.indexOf(u'月') + 1) : text;
}

QString title_of(const Report& report, const frame::Session& session) {
    const auto month = chosen_month(report.conditions, session);
    return month ? report.midasi[0] + u"  "_s + month_label(*month, session) : report.midasi[0];
}

/// Both ends empty stand for everybody also where only the start counts: then the last employee of all remains.
QList<DetailEmployee> employees_to_show(const Conditions& conditions, DetailReader& reader) {
    EmployeeRange range = chosen_employees(conditions);
    if (!conditions.print_flg)
        range.last = range.first;
    QList<DetailEmployee> employees = reader.employees(range.empty() ? reader.everyone() : range);
    if (!conditions.print_flg && employees.size() > 1)
        employees.remove(0, employees.size() - 1);
    return employees;
}

void show_employee(Report& report, const frame::Session& session, const DetailEmployee& employee) {
    書式設定_出勤明細一覧(report, session);
    report.midasi[0] = title_of(report, session);
    if (!employee.number.isEmpty())
        report.midasi[1] = u'【' + employee.number + u'】' + employee.name;
    report.chulab = report.midasi[1];
}

} // namespace

void 書式設定_日(Sheet& hyou_day) {
    hyou_day = Sheet(strip_rows, strip_cols);
    hyou_day.SetFixed(1, 0);
    hyou_day.SetRowHeight(detail::strip_key, 0);
    for (int col = 0; col < strip_cols; ++col)
        format_strip_column(hyou_day, col);
    hyou_day(detail::strip_name, 0) = u"出勤"_s;
    hyou_day(detail::strip_key, 0) = u"-1"_s;
    hyou_day(detail::strip_name, 1) = u"休暇"_s;
    hyou_day(detail::strip_key, 1) = u"-2"_s;
}

void 書式設定_出勤明細一覧(Report& report, const frame::Session& session) {
    書式設定_日(report.hyou_day);
    set_title(report, u"出勤明細一覧表"_s);
    Sheet& hyou = report.hyou;
    lay_out(hyou, columns, detail::rows);
    hyou.SetRowHeight(detail::category_row, 0);
    hyou(total_row, 0) = u"合計"_s;
    for (int col = 0; col < hyou.Cols(); ++col)
        hyou.SetCellBack(total_row, col, total_back);
    const auto month = chosen_month(report.conditions, session);
    if (!month)
        return;
    for (int row = 1; row <= month->length(); ++row)
        show_date(hyou, row, month->day(row));
    show_holidays(hyou, *month, session.settings.own_holidays);
}

Outcome 集計_出勤明細表(Report& report, Work& work) {
    書式設定_出勤明細一覧(report, work.session);
    const auto month = chosen_month(report.conditions, work.session);
    if (!month)
        return Outcome::Done;
    DetailReader reader(work.session, *month);
    const QList<DetailEmployee> employees = employees_to_show(report.conditions, reader);
    for (qsizetype i = 0; i < employees.size(); ++i) {
        if (!goes_on(work, i, employees.size()))
            return Outcome::Cancelled;
        show_employee(report, work.session, employees[i]);
        const bool has_data = reader.read(report, employees[i]) == Found::Data;
        if (report.conditions.print_flg && (has_data || report.conditions.print_zero) && work.print_employee)
            work.print_employee();
    }
    return Outcome::Done;
}

} // namespace reports
