#include "base/company_month.h"

#include <gtest/gtest.h>

using namespace base;

TEST(CompanyMonth, EveryDayFrom1999To2040LiesInExactlyOneRowOfOneMonth) {
    for (int start = 1; start <= 31; ++start) {
        QDate expected = CompanyMonth(1999, 1, start).first();
        for (int n = 0; n < 42 * 12; ++n) {
            const CompanyMonth month(1999 + n / 12, n % 12 + 1, start);
            ASSERT_EQ(month.first(), expected) << "start day " << start;
            ASSERT_GE(month.length(), 28);
            ASSERT_LE(month.length(), 31);
            for (int row = 1; row <= month.length(); ++row) {
                ASSERT_EQ(month.row_of_key(date_number(month.day(row))), row);
                ASSERT_EQ(CompanyMonth::of(month.day(row), start).month_key(), month.month_key());
            }
            expected = month.last().addDays(1);
        }
    }
}

TEST(CompanyMonth, RowsFollowTheDayWhereTheFirstDayExists) {
    EXPECT_EQ(period_row(21, 30, 21), 1);
    EXPECT_EQ(period_row(30, 30, 21), 10);
    EXPECT_EQ(period_row(1, 30, 21), 11);
    EXPECT_EQ(period_row(5, 31, 21), 16);
    EXPECT_EQ(period_row(17, 31, 1), 17);
    EXPECT_EQ(period_row(32, 31, 21), 32);
}

TEST(CompanyMonth, AMonthWithoutItsFirstDayStartsOnItsLastDay) {
    const CompanyMonth february(2005, 2, 31);
    EXPECT_EQ(february.first(), QDate(2005, 2, 28));
    EXPECT_EQ(february.last(), QDate(2005, 3, 30));
    EXPECT_EQ(february.row_of_key(20050328), 29) << "the 28th comes twice in this month";
    EXPECT_EQ(CompanyMonth(2004, 2, 30).first(), QDate(2004, 2, 29));
}

TEST(CompanyMonth, PostingKeysAreDatesUntilTheYearTurns) {
    EXPECT_EQ(CompanyMonth(2004, 3, 21).posting_key(16), 20040405);
    EXPECT_EQ(CompanyMonth(2004, 12, 21).posting_key(11), 20041231);
    EXPECT_EQ(CompanyMonth(2004, 12, 21).posting_key(16), 8805);
    EXPECT_EQ(CompanyMonth(2004, 12, 21).posting_key(total_row), 20041232);
}

TEST(CompanyMonth, WithStartDayOneTheQueryReachesThe31stOfEveryMonth) {
    const CompanyMonth february(2005, 2, 1);
    EXPECT_EQ(february.end_key(), 20050231);
    EXPECT_EQ(february.length(), 28);
    EXPECT_EQ(february.row_of_key(20050231), 31);
    EXPECT_EQ(february.row_of_key(20050301), std::nullopt);
}
