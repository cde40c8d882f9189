#include "reports/tallies/attendance_detail_read.h"

#include "base/literals.h"
#include "base/month_look.h"
#include "base/numbers.h"
#include "base/text.h"
#include "reports/tallies/attendance_detail.h"

#include <algorithm>

namespace reports {

using namespace base;

namespace {

constexpr int clock_in_col = 2;
constexpr int clock_out_col = 3;
constexpr int break_col = 4;
constexpr int work_col = 5;
constexpr int remark_col = 6;
constexpr int leave_col = 7;
constexpr int first_kind = 2; ///< column of the strip

// One range takes in the days and the total; an "or" would make the engine read all the employee's months.
constexpr std::string_view days = "select 出社日, 出社時間, 退社時間, 休憩時間, 勤務時間, 備考 from rovmei"
                                  " where 社員システム番号 = ? and (? <= 出社日 and 出社日 <= ?) order by 出社日";
constexpr std::string_view hours = "select 年月日, 勤務種類, 時間 from kinjisyu"
                                   " where 社員システム番号 = ? and (? <= 年月日 and 年月日 <= ?) order by 年月日";
constexpr std::string_view leave = "select 年月日, 休暇名 from kyumei"
                                   " where 社員システム番号 = ? and (? <= 年月日 and 年月日 <= ?) order by 年月日";
constexpr std::string_view counts =
    "select システム番号, 休暇残業, 日数１ from kinnisu where 社員システム番号 = ? and 年月 = ?";

void blank_zero(QString& cell) {
    cell = without_zero(cell);
}

/// The columns of the query are those of the sheet, two further left.
void show_day(Sheet& hyou, int row, const store::Row& fields) {
    for (int col = clock_in_col; col <= work_col; ++col)
        hyou(row, col) = time_field(fields, col - 1);
    hyou(row, remark_col) = Trim(fields.text(remark_col - 1));
    blank_zero(hyou(row, break_col));
    blank_zero(hyou(row, work_col));
    const bool no_clock = hyou(row, clock_in_col) == u"0:00" && hyou(row, clock_out_col) == u"0:00";
    if (no_clock || row == total_row) {
        blank_zero(hyou(row, clock_in_col));
        blank_zero(hyou(row, clock_out_col));
    }
}

QString key_of_count(qint64 number, qint64 family) {
    return (family == 1 ? u"k"_s : family == 2 ? u"s"_s : QString()) + digits(number);
}

QHash<QString, int> strip_columns(const Sheet& hyou_day) {
    QHash<QString, int> columns;
    for (int col = hyou_day.Cols() - 1; col >= 0; --col)
        columns[Trim(hyou_day(detail::strip_key, col))] = col;
    return columns;
}

void add_strip_column(Sheet& hyou_day, const QString& name, const QString& key) {
    const int col = hyou_day.Cols();
    hyou_day.setCols(col + 1);
    format_strip_column(hyou_day, col);
    hyou_day(detail::strip_name, col) = name;
    hyou_day(detail::strip_key, col) = key;
}

} // namespace

DetailReader::DetailReader(const frame::Session& session, const CompanyMonth& month)
    : m_month(month), m_last_key(std::max(month.end_key(), month.total_key())), m_rovdata(open_rovdata(session)),
      m_days(m_rovdata.prepare(days)), m_hours(m_rovdata.prepare(hours)), m_leave(m_rovdata.prepare(leave)),
      m_counts(m_rovdata.prepare(counts)), m_categories(category_names(m_rovdata)) {
    auto query = m_rovdata.prepare(
        "select システム番号, 休暇名, 休出 from kyutype order by 休出 desc,通常 desc,システム番号 asc");
    while (query.step())
        m_kinds << Kind{Trim(query.row().text(1)),
            key_of_count(query.row().number(0), /*family=*/query.row().number(2) == 0 ? 1 : 2)};
}

QList<DetailEmployee> DetailReader::employees(const EmployeeRange& range) {
    QList<DetailEmployee> found;
    auto query = m_rovdata.prepare("select システム番号, 社員番号, 社員名 from syain"
                                   " where システム番号 between ? and ? order by システム番号, rowid");
    query.bind(range.first, range.last);
    while (query.step()) {
        const qint64 key = query.row().number(0);
        if (key != 0 && (found.isEmpty() || found.last().key != key))
            found << DetailEmployee{key, Trim(query.row().text(1)), Trim(query.row().text(2))};
    }
    return found;
}

Found DetailReader::read(Report& report, const DetailEmployee& employee) {
    const store::Transaction view(m_rovdata, store::Transaction::Lock::Read);
    const Found attendance = read_days(report.hyou, employee.key);
    show_kinds(report.hyou_day);
    const Found worked = read_hours(report, employee);
    const Found absent = read_leave(report.hyou, employee.key);
    read_counts(report.hyou_day, employee.key);
    return std::max({attendance, worked, absent});
}

Found DetailReader::read_days(Sheet& hyou, qint64 employee) {
    Found found = Found::Nothing;
    m_days.bind(employee, m_month.start_key(), m_last_key);
    while (m_days.step())
        if (const auto row = m_month.row_of_key(m_days.row().integer(0))) {
            show_day(hyou, *row, m_days.row());
            found = Found::Data;
        }
    return found;
}

void DetailReader::show_kinds(Sheet& hyou_day) const {
    if (m_kinds.isEmpty())
        return;
    hyou_day.setCols(first_kind);
    for (const Kind& kind : m_kinds)
        add_strip_column(hyou_day, kind.name, kind.key);
}

/// By category, within a category as they are stored. Hours of a category that is gone aren't shown.
QList<DetailReader::Hours> DetailReader::stored_hours(qint64 employee) {
    QList<Hours> found;
    m_hours.bind(employee, m_month.start_key(), m_last_key);
    while (m_hours.step()) {
        const auto row = m_month.row_of_key(m_hours.row().integer(0));
        const qint64 category = m_hours.row().number(1);
        if (row && m_categories.contains(category))
            found << Hours{*row, category, without_zero(time_field(m_hours.row(), 2))};
    }
    std::ranges::stable_sort(found, {}, &Hours::category);
    return found;
}

int DetailReader::add_category(Report& report, qint64 category) const {
    Sheet& hyou = report.hyou;
    const int col = hyou.Cols();
    hyou.setCols(col + 1);
    hyou.setColAlignment(col, Alignment::Center);
    hyou.setBack(total_row, col, total_back);
    hyou(detail::category_row, col) = digits(category);
    hyou(0, col) = m_categories.value(category);
    add_strip_column(report.hyou_day, hyou(0, col), digits(category));
    return col;
}

Found DetailReader::read_hours(Report& report, const DetailEmployee& employee) {
    const QList<Hours> found = stored_hours(employee.key);
    if (found.isEmpty())
        return Found::Nothing;
    report.midasi[1] = employee.number + u':' + employee.name;
    qint64 category = 0;
    for (int col = 0; const Hours& worked : found) {
        if (col == 0 || worked.category != category)
            col = add_category(report, category = worked.category);
        report.hyou(worked.row, col) = worked.text;
    }
    return Found::Data;
}

Found DetailReader::read_leave(Sheet& hyou, qint64 employee) {
    Found found = Found::Nothing;
    m_leave.bind(employee, m_month.start_key(), m_month.end_key());
    while (m_leave.step())
        if (const auto row = m_month.row_of_key(m_leave.row().integer(0))) {
            hyou(*row, leave_col) = Trim(m_leave.row().text(1));
            found = Found::Data;
        }
    return found;
}

void DetailReader::read_counts(Sheet& hyou_day, qint64 employee) {
    const QHash<QString, int> columns = strip_columns(hyou_day);
    m_counts.bind(employee, m_month.month_key());
    while (m_counts.step()) {
        const store::Row fields = m_counts.row();
        const auto col = columns.constFind(key_of_count(fields.number(0), fields.number(1)));
        if (col != columns.cend() && fields.number(2) != 0)
            hyou_day(detail::strip_count, *col) = grouped(fields.number(2));
    }
}

void format_strip_column(Sheet& hyou_day, int col) {
    hyou_day.setColWidth(col, strip_width);
    hyou_day.setColAlignment(col, Alignment::Center);
}

} // namespace reports
