#include "reports/tallies/work_time_list.h"

#include "base/columns.h"
#include "base/era.h"
#include "base/literals.h"
#include "base/month_look.h"
#include "base/numbers.h"
#include "reports/tallies/work_time_sums.h"

namespace reports {

using namespace base;

namespace {

constexpr int number_col = 2;
constexpr int name_col = 3;
constexpr int clock_in_col = 4;
constexpr int clock_out_col = 5;
constexpr int work_col = 7;
constexpr int employees_between_signs = 50;

constexpr Column columns[] = {
    {u"", 400, Alignment::Right},
    {u"", 0},
    {u"社員番号", 1500},
    {u"社員名", 2000},
    {u"出社時間", 1000, Alignment::Center},
    {u"退社時間", 1000, Alignment::Center},
    {u"休憩時間", 1000, Alignment::Center},
    {u"勤務時間", 1000, Alignment::Center},
    {u"備考", 2000},
    {u"休暇", Sheet::default_col_width, Alignment::Center},
};
static_assert(std::size(columns) == times::first_category);

QString shown_date(int date, const frame::Session& session) {
    const bool open = date == DateRange::open_first || date == DateRange::open_last;
    return open ? QString() : 日付表示変換(digits(date), session.settings, session.host.now().date());
}

EmployeeRange select_employees(Report& report, store::Database& rovdata) {
    report.midasi[2] += chosen_names(report.conditions);
    const EmployeeRange chosen = chosen_employees(report.conditions);
    if (!chosen.empty())
        return chosen;
    report.chulab = u"全部"_s;
    report.midasi[2] = report.chulab;
    return all_employees(rovdata);
}

DateRange select_dates(Report& report, const frame::Session& session) {
    const DateRange dates = chosen_dates(report.conditions, session);
    report.midasi[1] = u'【' + shown_date(dates.first, session) + u'～' + shown_date(dates.last, session) + u'】';
    return dates;
}

Outcome read(QList<EmployeeSums>& found, WorkTimeReader& reader, const Work& work) {
    while (auto sums = reader.next()) {
        found << std::move(*sums);
        if (found.size() % employees_between_signs == 0 && !goes_on(work, found.size(), reader.employee_count()))
            return Outcome::Cancelled;
    }
    return Outcome::Done;
}

void add_category(Sheet& hyou, qint64 category, const QString& name) {
    const int col = hyou.Cols();
    hyou.SetCols(col + 1);
    hyou.SetColAlignment(col, Alignment::Center);
    hyou.SetCellBack(times::total_row, col, total_back);
    hyou(times::category_row, col) = digits(category);
    hyou(0, col) = name;
}

qint64 category_of(const Sheet& hyou, int col) {
    return Val(hyou(times::category_row, col));
}

/// The sum as a cell shows it. Hours have as many places as they need; no sum shows as nothing.
QString sum_text(minutes sum) {
    const qint64 whole = sum.count() / 60;
    const qint64 rest = sum.count() % 60;
    if (sum.count() == 0)
        return {};
    return digits(whole) + (rest < 10 ? u":0"_s : u":"_s) + digits(rest);
}

/// The running number is that of the employee in the order they are found, and goes with the row when rows are sorted.
void show_sums(Sheet& hyou, int row, const EmployeeSums& sums) {
    hyou(row, 0) = digits(row - times::first_employee + 1);
    hyou(row, times::key_col) = digits(sums.key);
    hyou(row, number_col) = sums.number;
    hyou(row, name_col) = sums.name;
    hyou(row, clock_in_col) = sums.day.clock_in;
    hyou(row, clock_out_col) = sums.day.clock_out;
    hyou(row, times::break_col) = sum_text(sums.breaks);
    hyou(row, work_col) = sum_text(sums.work);
    hyou(row, times::remark_col) = sums.day.remark;
    hyou(row, times::leave_col) = sums.leave;
    for (int col = times::first_category; col < hyou.Cols(); ++col)
        hyou(row, col) = sum_text(sums.hours.value(category_of(hyou, col)));
}

void show_totals(Sheet& hyou, const QList<EmployeeSums>& found) {
    minutes breaks{};
    minutes work{};
    QHash<qint64, minutes> hours;
    for (const EmployeeSums& sums : found) {
        breaks += sums.breaks;
        work += sums.work;
        for (auto category = sums.hours.cbegin(); category != sums.hours.cend(); ++category)
            hours[category.key()] += category.value();
    }
    hyou(times::total_row, times::break_col) = sum_text(breaks);
    hyou(times::total_row, work_col) = sum_text(work);
    for (int col = times::first_category; col < hyou.Cols(); ++col)
        hyou(times::total_row, col) = sum_text(hours.value(category_of(hyou, col)));
}

} // namespace

void 書式設定_勤務時間一覧(Report& report) {
    set_title(report, u"勤務時間一覧表"_s);
    Sheet& hyou = report.hyou;
    lay_out(hyou, columns, times::first_employee + 1);
    hyou.SetRowHeight(times::category_row, 0);
    hyou(times::total_row, name_col) = u"合　　計"_s;
    for (int col = 0; col < hyou.Cols(); ++col)
        hyou.SetCellBack(times::total_row, col, total_back);
}

Outcome 集計_勤務時間一覧表(Report& report, Work& work) {
    書式設定_勤務時間一覧(report);
    store::Database rovdata = open_rovdata(work.session);
    const store::Transaction view(rovdata, store::Transaction::Lock::Read);
    const EmployeeRange employees = select_employees(report, rovdata);
    WorkTimeReader reader(rovdata, employees, select_dates(report, work.session));
    QList<EmployeeSums> found;
    if (read(found, reader, work) == Outcome::Cancelled) {
        書式設定_勤務時間一覧(report); // a range over an empty sheet would say that nobody was there
        return Outcome::Cancelled;
    }
    if (found.isEmpty())
        return Outcome::Done;
    Sheet& hyou = report.hyou;
    for (const auto [category, name] : reader.categories().asKeyValueRange())
        add_category(hyou, category, name);
    hyou.SetRows(times::first_employee + int(found.size()));
    for (qsizetype i = 0; i < found.size(); ++i)
        show_sums(hyou, times::first_employee + int(i), found[i]);
    show_totals(hyou, found);
    sort_employees(hyou, work.session, times::key_col, number_col);
    return Outcome::Done;
}

} // namespace reports
