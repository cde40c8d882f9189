#pragma once

// The company month: the span of days that one sheet, one salary and one report stand for.
// It runs from its first day up to the day before the next company month starts, so every day belongs to exactly one.
// Where the first day doesn't exist in a calendar month (the 31st in April), the month starts on the first of the next
// one, and the month before it keeps all its days: with start day 31, March is 31 March to 30 April, April is 1 to 30
// May, and May is 31 May to 30 June. It is April's month all the same: its keys are made with the calendar month.
//
// Days are date numbers (yyyymmdd); yyyymm32 is the key of a month's total row. Sheet rows run from 1; row 32 is the
// total.

#include <QDate>
#include <optional>

namespace base {

inline constexpr int total_row = 32;

/// The first day of the company month from what is set for it: 1 where that is outside 1 to 31.
int valid_first_day(qint64 day);

/// The sheet row of a day of the month, whose first calendar month has at least the days before the start day. Day 32
/// is row 32. Start day 21 and a first month of 30 days: the 21st is row 1, the 30th row 10, the 1st row 11.
int period_row(int day, int days_in_first_month, int month_start_day);

class CompanyMonth {
public:
    /// The company month of the given calendar month.
    /// A start day outside 1 to 31 counts as 1; year and month must make a date.
    CompanyMonth(int year, int month, int month_start_day);

    /// The company month that the day belongs to.
    static CompanyMonth of(QDate day, int month_start_day);

    QDate first() const { return m_first; }
    QDate last() const { return m_first.addDays(m_length - 1); }
    int length() const { return m_length; } ///< 28 to 31 days

    /// The day of a row; an invalid date where the row is no day of this month.
    QDate day(int row) const;

    /// The row of a day; below 1 or above length() for a day of another month.
    int row(QDate day) const { return static_cast<int>(m_first.daysTo(day)) + 1; }

    /// Keys of the stored rows. start_key to end_key bound the days in queries, whether the start day exists or not;
    /// with start day 1 the end is yyyymm31 in every month. The total's key lies behind start_key.
    int start_key() const;
    int end_key() const;
    int month_key() const { return m_calendar_month.year() * 100 + m_calendar_month.month(); } ///< yyyymm
    int total_key() const { return month_key() * 100 + total_row; }                            ///< yyyymm32

    /// The key under which a row's facts are stored: its date number. The January days of a month that starts in
    /// December are stored under the bare day + 8800, which no period finds again.   start day 21, December, the 5th //
    /// 8805
    int posting_key(int row) const;

    /// The sheet row of a stored key; nothing for a key of another month. The key needs not be a real date:
    /// with start day 1 the 31st of February is row 31.
    std::optional<int> row_of_key(int key) const;

    /// Whether what is stored of a row's day is read back into the row.
    bool is_found_again(int row) const { return row_of_key(posting_key(row)) == row; }

private:
    QDate m_calendar_month; ///< its first day
    int m_start_day;
    QDate m_first;
    int m_length;
};

/// A date as yyyymmdd; an invalid date is 0.
int date_number(QDate date);

/// The date of yyyymmdd; invalid where the number is no date.
QDate date_of_number(qint64 number);

} // namespace base
