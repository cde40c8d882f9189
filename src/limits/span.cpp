#include "limits/span.h"

#include "base/company_month.h"

namespace limits {

namespace {

constexpr int year = 12;

int count_of(int month_key) {
    return month_key / 100 * year + month_key % 100 - 1;
}

QDate last_day(int month_key, int month_start_day) {
    return base::CompanyMonth(month_key / 100, month_key % 100, month_start_day).last();
}

} // namespace

int month_after(int month_key, int months) {
    const int count = count_of(month_key) + months;
    return count / year * 100 + count % year + 1;
}

int months_of_year(int month_key, int first_month) {
    return (month_key % 100 - first_month + year) % year + 1;
}

Span span_of(int month_key, const Rules& rules, int month_start_day, QDate today) {
    Span span{.month = month_key,
        .of_hours = months_of_year(month_key, rules[Figure::OvertimeYearFrom]),
        .of_leave = months_of_year(month_key, rules[Figure::LeaveYearFrom]),
        .leave_end = {}};
    for (int back = 0; back < span.of_leave; ++back)
        span.over += last_day(span.month_back(back), month_start_day) < today ? 1 : 0;
    span.leave_end = last_day(month_after(month_key, year - span.of_leave), month_start_day);
    return span;
}

} // namespace limits
