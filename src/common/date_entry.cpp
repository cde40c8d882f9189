#include "common/date_entry.h"

#include "base/company_month.h"
#include "base/era.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"

namespace common {

using namespace base;

namespace {

constexpr int no_day = 32;

/// The first day of the month that belongs to the month before; `no_day` if T and today tell no such day.
int first_day_of_last_month(QDate today, QDate T) {
    if (T.day() < today.day())
        return no_day;
    const int p = T.addMonths(-1).addDays(1).day();
    return today.day() > p ? no_day : p;
}

QDate day_in_month_of(QDate month, int day) {
    return QDate(month.year(), month.month(), day);
}

} // namespace

QDate DateEntry::day_alone(int day, QDate today) const {
    const QDate T = today.addDays(m_settings.forward_date);
    if (first_day_of_last_month(today, T) <= day && day <= no_day)
        return day_in_month_of(today.addMonths(-1), day);
    if (T.day() < today.day() && day <= T.day())
        return day_in_month_of(T, day);
    return day_in_month_of(today, day);
}

QDate DateEntry::full_date(const QString& digits, QDate today) const {
    const auto era = m_settings.date_style == 1 ? era_of(m_settings, today) : std::nullopt;
    const int year = int_val(digits.chopped(4)) + (era ? m_settings.era_offset[*era] : 0);
    return QDate(year, int_val(digits.right(4).first(2)), int_val(digits.right(2)));
}

std::optional<QDate> DateEntry::read(const QString& typed, QDate today) const {
    const bool eras = era_years(m_settings, today);
    const QString digits = 日付連結(typed, eras ? YearForm::Era : YearForm::Western);
    const qsizetype full = eras ? 6 : 8;
    const qsizetype count = digits.size();
    if (count == full || count == full - 1)
        return full_date(digits, today);
    if (count == 3 || count == 4)
        return QDate(today.year(), int_val(digits.chopped(2)), int_val(digits.right(2)));
    if (count <= 2)
        return day_alone(int_val(digits), today);
    return std::nullopt;
}

std::optional<int> DateEntry::日付簡単入力(const QString& text, Blank blank, QDate today) {
    const QString typed = Trim(text);
    if (typed.isEmpty() && blank == Blank::StaysBlank)
        return std::nullopt;
    const QDate fallback = m_last.isValid() ? m_last : today;
    const QDate date = typed.isEmpty() ? fallback : read(typed, today).value_or(QDate());
    if (date.isValid())
        m_last = date;
    return date_number(date);
}

} // namespace common
