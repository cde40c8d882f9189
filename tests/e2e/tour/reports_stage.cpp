// The reports: all six over the made-up company, and the typed month of the new one.

#include "base/literals.h"
#include "report_screen.h"
#include "reports/tallies/attendance_detail.h"
#include "reports/tallies/work_time_list.h"
#include "stage.h"

namespace tour {

using namespace base;
using e2e::demand;

namespace {

constexpr ReportLook employees{1, u"社員一覧表", {1, 2}};
constexpr ReportLook masters[] = {
    {2, u"勤務種類一覧表", {1, 1}}, {3, u"勤務タイプ一覧表", {1, 1}}, {6, u"休暇出勤一覧表", {1, 0}}};
constexpr ReportLook detail{4, u"出勤明細一覧表", {entry::row::total, entry::col::work_time}};
constexpr ReportLook times{5, u"勤務時間一覧表", {reports::times::first_employee, 3}};

constexpr int number_col = 1; ///< of the employee list
constexpr int last_of_range = 3;
constexpr int days_of_range = 10;

QString file_name(const ReportLook& look) {
    return u"report-%1"_s.arg(look.number);
}

struct Range {
    QStringList numbers;
    QStringList names;
};

/// Lists everybody, and then one employee by the search. Returns the first employees of the list.
Range list_employees(Tour& tour) {
    ReportScreen screen(tour, employees);
    screen.extract();
    Range range;
    for (int row = 1; row <= last_of_range; ++row) {
        range.numbers << screen.cell({row, number_col});
        range.names << screen.cell({row, employees.name.col});
    }
    screen.put_out(file_name(employees), {range.names});
    const QString found = screen.search_employee(u"search-employee"_s);
    screen.extract();
    demand(screen.report().hyou.Rows() == 2 && screen.cell({1, number_col}) == found,
        u"the employee that was searched isn't the only one on the list"_s);
    return range;
}

void list_masters(Tour& tour) {
    for (const ReportLook& look : masters) {
        ReportScreen screen(tour, look);
        screen.extract();
        screen.put_out(file_name(look), {screen.cell(look.name)});
    }
}

/// The extract prints a page or more of each employee, those without attendance too.
void print_range(Tour& tour, QDate month, const Range& range) {
    ReportScreen screen(tour, detail);
    screen.choose_month(month);
    screen.type_employees(range.numbers.first(), range.numbers.last());
    screen.tick(u"連続印刷"_s);
    screen.tick(u"0も印刷"_s);
    tour.picture(u"report-range-set"_s);
    screen.extract();
    screen.keep_printed(u"report-4-range"_s, int(range.numbers.size()), {range.names.first(), range.names.last()});
}

void print_typed_employee(Tour& tour, const QString& name) {
    const TypedMonth& typed = tour.company.typed;
    ReportScreen screen(tour, detail);
    screen.choose_month(tour.month());
    screen.type_employees(typed.employee_number, typed.employee_number);
    screen.extract();
    demand(totals_of(screen.report().hyou) == typed.totals, u"the report's totals aren't those of the typed month"_s);
    screen.put_out(name, {typed.employee_name});
}

void list_times(Tour& tour, QDate month) {
    ReportScreen screen(tour, times);
    screen.type_days(month, month.addDays(days_of_range - 1));
    screen.extract();
    screen.put_out(file_name(times), {screen.cell(times.name)});
}

} // namespace

void print_reports(Tour& tour) {
    const QDate month_of_all = tour.month().addMonths(-1);
    const Range range = list_employees(tour);
    list_masters(tour);
    print_range(tour, month_of_all, range);
    print_typed_employee(tour, file_name(detail));
    list_times(tour, month_of_all);
}

void print_typed_month(Tour& tour) {
    print_typed_employee(tour, file_name(detail) + u"-new"_s);
}

} // namespace tour
