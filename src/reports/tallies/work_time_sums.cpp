#include "reports/tallies/work_time_sums.h"

#include "base/company_month.h"
#include "base/text.h"
#include "common/time_field.h"

namespace reports {

using namespace base;

namespace {

// The day tables are keyed by employee and day: a walk from employee to employee reads the range's days alone, where
// one query over all employees would read all their months.
constexpr std::string_view next_employee = "select 社員システム番号 from rovmei where 社員システム番号 > ?"
                                           " order by 社員システム番号 limit 1";
constexpr std::string_view days = "select 出社日, 休憩時間, 勤務時間, 出社時間, 退社時間, 備考 from rovmei"
                                  " where 社員システム番号 = ? and (? <= 出社日 and 出社日 <= ?) order by 出社日";
constexpr std::string_view hours = "select 年月日, 勤務種類, 時間 from kinjisyu"
                                   " where 社員システム番号 = ? and (? <= 年月日 and 年月日 <= ?)";
constexpr std::string_view leave = "select 年月日, 休暇名 from kyumei"
                                   " where 社員システム番号 = ? and (? <= 年月日 and 年月日 <= ?) order by 年月日";

bool is_day(const store::Row& row) {
    return row.number(0) % 100 != total_row;
}

minutes minutes_field(const store::Row& row, int column) {
    return time_to_minutes(ClockNumber{row.number(column)});
}

OneDay day_of(const store::Row& row) {
    OneDay day{common::time_field(row, 3), common::time_field(row, 4), Trim(row.text(5))};
    if (common::no_clock_times(day.clock_in, day.clock_out))
        day.clock_in = day.clock_out = QString();
    return day;
}

} // namespace

WorkTimeReader::WorkTimeReader(store::Database& rovdata, const EmployeeRange& employees, const DateRange& dates)
    : m_employees(employees), m_dates(dates), m_employee(employees.first - 1), m_staff(staff_of(rovdata, employees)),
      m_categories(category_names(rovdata)), m_next(rovdata.prepare(next_employee)), m_days(rovdata.prepare(days)),
      m_hours(rovdata.prepare(hours)), m_leave(rovdata.prepare(leave)) {}

WorkTimeReader::Staff WorkTimeReader::staff_of(store::Database& rovdata, const EmployeeRange& employees) {
    Staff staff;
    auto query = rovdata.prepare("select システム番号, 社員番号, 社員名 from syain where システム番号 between ? and ?");
    query.bind(employees.first, employees.last);
    while (query.step())
        staff.insert(query.row().number(0), {Trim(query.row().text(1)), Trim(query.row().text(2))});
    return staff;
}

bool WorkTimeReader::go_to_next_employee() {
    if (!m_next.bind(m_employee).step())
        return false;
    m_employee = m_next.row().number(0);
    return m_employee <= m_employees.last;
}

std::optional<EmployeeSums> WorkTimeReader::next() {
    while (go_to_next_employee()) {
        const Person person = m_staff.value(m_employee);
        EmployeeSums sums;
        sums.key = m_employee;
        sums.number = person.number;
        sums.name = person.name;
        if (!add_days(sums))
            continue;
        add_hours(sums);
        add_leave(sums);
        return sums;
    }
    return std::nullopt;
}

/// False if the employee has no day in the range.
bool WorkTimeReader::add_days(EmployeeSums& sums) {
    bool any = false;
    m_days.bind(m_employee, m_dates.first, m_dates.last);
    while (m_days.step()) {
        const store::Row row = m_days.row();
        if (!is_day(row))
            continue;
        any = true;
        sums.breaks += minutes_field(row, 1);
        sums.work += minutes_field(row, 2);
        if (m_dates.one_day())
            sums.day = day_of(row);
    }
    return any;
}

/// Hours of a category that is gone don't count.
void WorkTimeReader::add_hours(EmployeeSums& sums) {
    m_hours.bind(m_employee, m_dates.first, m_dates.last);
    while (m_hours.step()) {
        const store::Row row = m_hours.row();
        const auto category = m_categories.constFind(row.number(1));
        if (!is_day(row) || category == m_categories.cend())
            continue;
        if (!sums.hours.contains(category.key()))
            m_met.insert(category.key(), category.value());
        sums.hours[category.key()] += minutes_field(row, 2);
    }
}

void WorkTimeReader::add_leave(EmployeeSums& sums) {
    m_leave.bind(m_employee, m_dates.first, m_dates.last);
    while (m_leave.step())
        if (is_day(m_leave.row()))
            sums.leave = Trim(m_leave.row().text(1));
}

} // namespace reports
