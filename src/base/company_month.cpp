#include "base/company_month.h"

#include <algorithm>

namespace base {

namespace {

QDate start_of(QDate calendar_month, int start_day) {
    const bool exists = start_day <= calendar_month.daysInMonth();
    return exists ? calendar_month.addDays(start_day - 1) : calendar_month.addMonths(1);
}

} // namespace

int valid_first_day(qint64 day) {
    return day < 1 || day > 31 ? 1 : static_cast<int>(day);
}

int period_row(int day, int days_in_first_month, int month_start_day) {
    if (month_start_day == 1 || day == total_row)
        return day;
    return day >= month_start_day ? day - month_start_day + 1 : day + days_in_first_month - month_start_day + 1;
}

CompanyMonth::CompanyMonth(int year, int month, int month_start_day)
    : m_calendar_month(year, month, 1), m_start_day(valid_first_day(month_start_day)),
      m_first(start_of(m_calendar_month, m_start_day)),
      m_length(static_cast<int>(m_first.daysTo(start_of(m_calendar_month.addMonths(1), m_start_day)))) {}

CompanyMonth CompanyMonth::of(QDate day, int month_start_day) {
    const CompanyMonth same(day.year(), day.month(), month_start_day);
    if (day >= same.first())
        return same;
    const QDate before = day.addDays(1 - day.day()).addMonths(-1);
    return {before.year(), before.month(), month_start_day};
}

QDate CompanyMonth::day(int row) const {
    return row < 1 || row > m_length ? QDate() : m_first.addDays(row - 1);
}

int CompanyMonth::start_key() const {
    return month_key() * 100 + m_start_day;
}

int CompanyMonth::end_key() const {
    constexpr int endDay = 31; // of a month that starts on the 1st, whatever its length
    return m_start_day == 1 ? month_key() * 100 + endDay : date_number(last());
}

int CompanyMonth::posting_key(int row) const {
    if (row == total_row)
        return total_key();
    const QDate date = day(row);
    const bool crosses_the_year = date.isValid() && date.year() != m_calendar_month.year();
    return crosses_the_year ? date.day() + 8800 : date_number(date);
}

std::optional<int> CompanyMonth::row_of_key(int key) const {
    const int day = key % 100;
    if (key == total_key())
        return total_row;
    if (key < start_key() || key > end_key() || day < 1 || day > 31)
        return std::nullopt;
    // Without its start day, the first calendar month counts as if it ended on the day before it.
    const int days_in_first_month = std::max(m_calendar_month.daysInMonth(), m_start_day - 1);
    return period_row(day, days_in_first_month, m_start_day);
}

int date_number(QDate date) {
    return date.isValid() ? date.year() * 10000 + date.month() * 100 + date.day() : 0;
}

QDate date_of_number(qint64 number) {
    if (number < 1'01'01 || number > 9999'12'31)
        return {};
    const int n = static_cast<int>(number);
    return {n / 10000, n / 100 % 100, n % 100};
}

} // namespace base
