#include "base/company_month.h"

#include <gtest/gtest.h>

using namespace base;

TEST(CompanyMonth, EveryDayOf400YearsLiesInExactlyOneRowOfOneMonth) {
    constexpr int first_year = 2000;
    for (int start = 1; start <= 31; ++start) {
        QDate expected = CompanyMonth(first_year, 1, start).first();
        int end_key_before = 0;
        for (int n = 0; n < 400 * 12; ++n) {
            const QDate calendar(first_year + n / 12, n % 12 + 1, 1);
            const CompanyMonth month(calendar.year(), calendar.month(), start);
            const bool exists = start <= calendar.daysInMonth();
            ASSERT_EQ(month.first(), expected) << "start day " << start;
            ASSERT_EQ(month.first(), exists ? calendar.addDays(start - 1) : calendar.addMonths(1));
            ASSERT_EQ(month.month_key(), calendar.year() * 100 + calendar.month());
            ASSERT_TRUE(28 <= month.length() && month.length() <= 31);
            ASSERT_GT(month.start_key(), end_key_before) << "no key is of two months";
            ASSERT_LE(month.start_key(), date_number(month.first()));
            ASSERT_GE(end_key_before = month.end_key(), date_number(month.last()));
            for (const QDate day : {month.first(), month.last()})
                ASSERT_EQ(CompanyMonth::of(day, start).month_key(), month.month_key());
            int agreeing = 0;
            for (int row = 1; row <= month.length(); ++row) {
                const QDate day = month.day(row);
                const int key = date_number(day), posted = month.posting_key(row);
                const bool turned = n % 12 == 11 && day.month() == 1;
                agreeing += month.row_of_key(key) == row && posted == (turned ? 8800 + day.day() : key);
            }
            ASSERT_EQ(agreeing, month.length()) << month.month_key() << ", start day " << start;
            expected = month.last().addDays(1);
        }
    }
}

TEST(CompanyMonth, RowsFollowTheDayWhereTheFirstDayExists) {
    for (const auto& [day, length, start, row] : {std::array{21, 30, 21, 1}, {30, 30, 21, 10}, {1, 30, 21, 11},
             {5, 31, 21, 16}, {17, 31, 1, 17}, {32, 31, 21, 32}})
        EXPECT_EQ(period_row(day, length, start), row) << day;
}

TEST(CompanyMonth, AMonthWithoutItsFirstDayStartsOnTheFirstOfTheNext) {
    const struct {
        int month;
        QDate first, last;
    } months[] = {{1, {2005, 1, 31}, {2005, 2, 28}}, {2, {2005, 3, 1}, {2005, 3, 30}},
        {3, {2005, 3, 31}, {2005, 4, 30}}, {4, {2005, 5, 1}, {2005, 5, 30}}, {5, {2005, 5, 31}, {2005, 6, 30}}};
    for (const auto& [month, first, last] : months) {
        EXPECT_EQ(CompanyMonth(2005, month, 31).first(), first) << month;
        EXPECT_EQ(CompanyMonth(2005, month, 31).last(), last) << month;
    }
    const CompanyMonth april(2005, 4, 31);
    EXPECT_EQ(april.total_key(), 20050432) << "it keeps its own name";
    EXPECT_EQ(april.row_of_key(20050432), total_row);
    EXPECT_TRUE(april.start_key() <= april.total_key() && april.total_key() <= april.end_key());
    EXPECT_EQ(april.row_of_key(20050430), std::nullopt);
    EXPECT_EQ(CompanyMonth(2005, 2, 29).row_of_key(20050328), 28);
    EXPECT_EQ(CompanyMonth(2004, 12, 31).posting_key(31), 8830);
    EXPECT_EQ(CompanyMonth(2004, 12, 21).posting_key(total_row), 20041232);
}

TEST(CompanyMonth, WithStartDayOneTheQueryReachesThe31stOfEveryMonth) {
    const CompanyMonth february(2005, 2, 1);
    EXPECT_EQ(february.end_key(), 20050231);
    EXPECT_EQ(february.length(), 28);
    EXPECT_EQ(february.row_of_key(20050231), 31);
    EXPECT_EQ(february.row_of_key(20050301), std::nullopt);
    for (const int no_day : {20050200, 20050131})
        EXPECT_EQ(february.row_of_key(no_day), std::nullopt) << no_day;
    for (const int no_row : {0, 29})
        EXPECT_FALSE(february.day(no_row).isValid()) << no_row;
    EXPECT_EQ(february.posting_key(29), 0);
    for (const qint64 no_date : {qint64(0), qint64(9999'12'32), qint64(1) << 40, qint64(20050229)})
        EXPECT_FALSE(date_of_number(no_date).isValid()) << no_date;
}
