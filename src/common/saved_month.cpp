#include "common/saved_month.h"

#include "base/numbers.h"
#include "base/text.h"
#include "common/count_tag.h"
#include "common/time_field.h"

#include <algorithm>
#include <utility>

namespace common {

using namespace base;

namespace {

constexpr unsigned of_days = 1, of_hours = 2, of_kinds = 4, of_counts = 8;

constexpr minutes midnight = std::chrono::hours(24);

// One range takes in the days and the total; an "or" would make the engine read all the employee's months.
constexpr std::string_view days_sql = "select 出社日, 出社時間, 退社時間, 休憩時間, 勤務時間, 備考 from rovmei"
                                      " where 社員システム番号 = ? and 出社日 between ? and ? order by 出社日";
constexpr std::string_view hours_sql = "select 年月日, 勤務種類, 時間 from kinjisyu"
                                       " where 社員システム番号 = ? and 年月日 between ? and ? order by 年月日";
constexpr std::string_view kinds_sql = "select 年月日, システム番号, 休暇名, 休出 from kyumei"
                                       " where 社員システム番号 = ? and 年月日 between ? and ? order by 年月日";
constexpr std::string_view counts_sql =
    "select システム番号, 休暇残業, 日数１ from kinnisu where 社員システム番号 = ? and 年月 = ?";

/// With start day 1 the total's key follows the last day's; with a later one it lies between two days.
int last_key(const CompanyMonth& month) {
    const int totalKey = month.total_key();
    return std::max(month.end_key(), totalKey);
}

QString clock_out_field(const store::Row& fields, int column, PastMidnight past_midnight) {
    const minutes time = time_to_minutes(ClockNumber{fields.number(column)});
    if (past_midnight == PastMidnight::AsTyped && time > midnight)
        return time_to_text(minutes_to_time(time - midnight));
    return time_field(fields, column);
}

void blank_clock_times(SavedDay& day) {
    day.clock_in = without_zero(day.clock_in);
    day.clock_out = without_zero(day.clock_out);
}

} // namespace

QString SavedKind::number() const {
    return m_fields.text(1);
}

QString SavedKind::name() const {
    return Trim(m_fields.text(2));
}

QString SavedKind::holiday_work() const {
    return Trim(m_fields.text(3));
}

SavedDay saved_day(const store::Row& fields, int first, PastMidnight past_midnight) {
    SavedDay day{time_field(fields, first), clock_out_field(fields, first + 1, past_midnight),
        time_field_without_zero(fields, first + 2), time_field_without_zero(fields, first + 3),
        Trim(fields.text(first + 4))};
    if (no_clock_times(day.clock_in, day.clock_out))
        blank_clock_times(day);
    return day;
}

SavedMonth::SavedMonth(store::Database& rovdata, const CompanyMonth& month, PastMidnight past_midnight)
    : m_month(month), m_past_midnight(past_midnight), m_last_key(last_key(month)), m_days(rovdata.prepare(days_sql)),
      m_hours(rovdata.prepare(hours_sql)), m_kinds(rovdata.prepare(kinds_sql)), m_counts(rovdata.prepare(counts_sql)) {}

SavedDay SavedMonth::day(int row, const store::Row& fields) const {
    SavedDay day = saved_day(fields, 1, m_past_midnight);
    if (row == total_row)
        blank_clock_times(day);
    return day;
}

void SavedMonth::ask(EmployeeKey employee) {
    m_days.bind(employee, m_month.start_key(), m_last_key).ask();
    m_hours.bind(employee, m_month.start_key(), m_last_key).ask();
    m_kinds.bind(employee, m_month.start_key(), m_month.end_key()).ask();
    m_counts.bind(employee, m_month.month_key()).ask();
    m_asked = of_days | of_hours | of_kinds | of_counts;
}

bool SavedMonth::bound(unsigned figure) {
    return (std::exchange(m_asked, m_asked & ~figure) & figure) != 0;
}

void SavedMonth::days(EmployeeKey employee, const std::function<void(int, const SavedDay&)>& show) {
    if (!bound(of_days))
        m_days.bind(employee, m_month.start_key(), m_last_key);
    while (m_days.step())
        if (const auto row = m_month.row_of_key(m_days.row().integer(0)))
            show(*row, day(*row, m_days.row()));
}

void SavedMonth::hours(EmployeeKey employee, const std::function<void(int, qint64, const QString&)>& show) {
    if (!bound(of_hours))
        m_hours.bind(employee, m_month.start_key(), m_last_key);
    while (m_hours.step())
        if (const auto row = m_month.row_of_key(m_hours.row().integer(0)))
            show(*row, m_hours.row().number(1), time_field_without_zero(m_hours.row(), 2));
}

void SavedMonth::kinds(EmployeeKey employee, const std::function<void(int, const SavedKind&)>& show) {
    if (!bound(of_kinds))
        m_kinds.bind(employee, m_month.start_key(), m_month.end_key());
    while (m_kinds.step()) {
        const store::Row fields = m_kinds.row();
        if (const auto row = m_month.row_of_key(fields.integer(0)))
            show(*row, SavedKind(fields));
    }
}

void SavedMonth::counts(EmployeeKey employee, const std::function<void(const SavedCount&)>& show) {
    if (!bound(of_counts))
        m_counts.bind(employee, m_month.month_key());
    while (m_counts.step()) {
        const store::Row fields = m_counts.row();
        if (fields.number(2) != 0)
            show({CountTag{fields.number(0), fields.number(1)}.text(), grouped(fields.number(2))});
    }
}

CountedKinds::CountedKinds(store::Database& rovdata)
    : m_kinds(rovdata.prepare(
          "select 休暇名, システム番号, 休出 from kyutype order by 休出 desc, 通常 desc, システム番号")) {
    m_kinds.ask();
}

QList<CountedKind> CountedKinds::read() {
    QList<CountedKind> kinds;
    while (m_kinds.step()) {
        const store::Row row = m_kinds.row();
        const CountTag tag = CountTag::of_kind(row.number(1), row.number(2));
        kinds.append({Trim(row.text(0)), tag.text(), tag.family == CountTag::Leave});
    }
    return kinds;
}

} // namespace common
