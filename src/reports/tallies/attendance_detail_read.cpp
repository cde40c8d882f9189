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

void show_day(Sheet& hyou, int row, const common::SavedDay& day) {
    hyou(row, clock_in_col) = day.clock_in;
    hyou(row, clock_out_col) = day.clock_out;
    hyou(row, break_col) = day.break_time;
    hyou(row, work_col) = day.work_time;
    hyou(row, remark_col) = day.remark;
}

QHash<QString, int> strip_columns(const Sheet& hyou_day) {
    QHash<QString, int> columns;
    for (int col = hyou_day.Cols() - 1; col >= 0; --col)
        columns[Trim(hyou_day(detail::strip_key, col))] = col;
    return columns;
}

void add_strip_column(Sheet& hyou_day, const QString& name, const QString& key) {
    const int col = hyou_day.Cols();
    hyou_day.SetCols(col + 1);
    format_strip_column(hyou_day, col);
    hyou_day(detail::strip_name, col) = name;
    hyou_day(detail::strip_key, col) = key;
}

} // namespace

DetailReader::DetailReader(const frame::Session& session, const CompanyMonth& month)
    : m_rovdata(open_rovdata(session)), m_saved(m_rovdata, month, common::PastMidnight::AsStored),
      m_categories(category_names(m_rovdata)), m_kinds(common::counted_kinds(m_rovdata)) {}

QList<DetailEmployee> DetailReader::employees(const EmployeeRange& range) {
    QList<DetailEmployee> found;
    auto query = m_rovdata.prepare("select システム番号, 社員番号, 社員名 from syain"
                                   " where システム番号 between ? and ? order by システム番号, rowid");
    query.bind(range.first, range.last);
    while (query.step()) {
        const EmployeeKey key(query.row().number(0));
        if (!key.none() && (found.isEmpty() || found.last().key != key))
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

Found DetailReader::read_days(Sheet& hyou, EmployeeKey employee) {
    Found found = Found::Nothing;
    m_saved.days(employee, [&](int row, const common::SavedDay& day) {
        show_day(hyou, row, day);
        found = Found::Data;
    });
    return found;
}

void DetailReader::show_kinds(Sheet& hyou_day) const {
    if (m_kinds.isEmpty())
        return;
    hyou_day.SetCols(first_kind);
    for (const common::CountedKind& kind : m_kinds)
        add_strip_column(hyou_day, kind.name, kind.tag);
}

/// By category, within a category as they are stored. Hours of a category that is gone aren't shown.
QList<DetailReader::Hours> DetailReader::stored_hours(EmployeeKey employee) {
    QList<Hours> found;
    m_saved.hours(employee, [&](int row, qint64 category, const QString& time) {
        if (m_categories.contains(category))
            found << Hours{row, category, time};
    });
    std::ranges::stable_sort(found, {}, &Hours::category);
    return found;
}

int DetailReader::add_category(Report& report, qint64 category) const {
    Sheet& hyou = report.hyou;
    const int col = hyou.Cols();
    hyou.SetCols(col + 1);
    hyou.SetColAlignment(col, Alignment::Center);
    hyou.SetCellBack(total_row, col, total_back);
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

Found DetailReader::read_leave(Sheet& hyou, EmployeeKey employee) {
    Found found = Found::Nothing;
    m_saved.kinds(employee, [&](int row, const common::SavedKind& kind) {
        hyou(row, leave_col) = kind.name();
        found = Found::Data;
    });
    return found;
}

void DetailReader::read_counts(Sheet& hyou_day, EmployeeKey employee) {
    const QHash<QString, int> columns = strip_columns(hyou_day);
    m_saved.counts(employee, [&](const common::SavedCount& count) {
        if (const auto col = columns.constFind(count.tag); col != columns.cend())
            hyou_day(detail::strip_count, *col) = count.days;
    });
}

void format_strip_column(Sheet& hyou_day, int col) {
    hyou_day.SetColWidth(col, strip_width);
    hyou_day.SetColAlignment(col, Alignment::Center);
}

} // namespace reports
