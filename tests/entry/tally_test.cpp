#include "entry/sheet_builder.h"
#include "entry/tally.h"

#include <gtest/gtest.h>

using namespace entry;

namespace {

constexpr int A = 11;
constexpr int B = 12;

} // namespace

TEST(MonthTally, HoursAreSummedAColumnAndClockTimesAreNot) {
    MonthSheet sheet = month_sheet({A, B});
    for (int r = 1; r <= 31; ++r)
        lay(sheet.hyou, {r, col::clock_in}, u"8:00||1:00|10:50|7:00||40:01"_s);
    tally_month(sheet);
    EXPECT_EQ(cells_from(sheet.hyou, row::total, col::clock_in), u"||31:00|335:50|||1240:31|"_s);
}

TEST(MonthTally, DaysWithAndWithoutWorkMakeUpThePeriod) {
    struct Case {
        int month, start_day, worked;
        QString counts; ///< days with and without work
    };
    const Case cases[] = {{4, 1, 20, u"20|10"_s}, {2, 1, 1, u"1|28"_s}, {3, 21, 0, u"|31"_s}, {4, 1, 30, u"30|0"_s}};
    for (const Case& c : cases) {
        MonthSheet sheet = month_sheet({}, c.month, c.start_day);
        for (int r = 1; r <= c.worked; ++r)
            sheet.hyou(r, 5) = u"8:00"_s;
        tally_month(sheet);
        EXPECT_EQ(cells_from(sheet.hyou_day, strip::count, 0, 2), c.counts) << c.month;
    }
}

TEST(MonthTally, AMonthOf28DaysHasNoDay29) {
    MonthSheet sheet = month_sheet({});
    書式設定(sheet, CompanyMonth(2005, 2, 1));
    tally_month(sheet);
    EXPECT_EQ(count_under(sheet, u"-2"_s), u"28"_s);
    EXPECT_EQ(sheet.mark(28) + sheet.mark(29) + sheet.hyou(29, col::kind), u"1"_s) << "past the end nothing is stamped";
}

TEST(MonthTally, EveryEmptyDayTakesTheDefaultKindAndIsToBeSaved) {
    MonthSheet sheet = month_sheet({}, 4);
    sheet.hyou(1, 5) = u"8:00"_s;
    sheet.hyou_system(2, 0) = u"1"_s;
    tally_month(sheet);
    EXPECT_EQ(sheet.mark(1) + sheet.mark(2), u""_s) << "they have work and a kind";
    EXPECT_EQ(cells_from(sheet.hyou_system, 30, 0) + sheet.hyou(30, col::kind), u"2|公休|1|公休"_s);
    EXPECT_EQ(count_under(sheet, u"k2"_s) + u'|' + count_under(sheet, u"k1"_s), u"28|1"_s);
}

TEST(MonthTally, ACategoryCountsTheDaysWithAnyTimeInItAndNotAKindOfItsNumber) {
    MonthSheet sheet = month_sheet({A, B, 3});
    sheet.hyou(2, 10) = u"1:00"_s;
    sheet.hyou(1, 8) = u"0:01"_s;
    sheet.hyou(31, 8) = u"8:00"_s;
    tally_month(sheet);
    EXPECT_EQ(cells_from(sheet.hyou_day, strip::count, 2), u"|||31|2||1"_s) << "of s3 nothing, of 3 one day";
}

TEST(MonthTally, ACategoryOfNumberZeroIsNotCounted) {
    MonthSheet sheet = month_sheet({0});
    sheet.hyou(1, 8) = u"1:00"_s;
    tally_month(sheet);
    EXPECT_EQ(cells_from(sheet.hyou_day, strip::count, 2), u"|||31|"_s) << "its number is that of every kind's tag";
}

TEST(MonthTally, CountsAreBuiltAnewEachTime) {
    MonthSheet sheet = month_sheet({A});
    sheet.hyou_day(strip::count, 3) = u"17"_s;
    sheet.hyou(1, col::first_category) = u"1:00"_s;
    for (int time = 1; time <= 2; ++time)
        tally_month(sheet);
    EXPECT_EQ(count_under(sheet, u"s4"_s) + u'|' + count_under(sheet, u"11"_s), u"|1"_s);
}

TEST(MonthTally, WorkOnADayPastThePeriodStillAddsToTheSums) {
    MonthSheet sheet = month_sheet({A}, 4);
    sheet.hyou(31, 8) = u"1:00"_s;
    tally_month(sheet);
    EXPECT_EQ(sheet.hyou(row::total, 8), u"1:00"_s);
}

TEST(KindCount, OneDayOnlyAddsAndAllDaysCountAnewLeavingTheOtherCounts) {
    MonthSheet sheet = month_sheet({A});
    for (const int r : {1, 2, 31})
        lay(sheet.hyou_system, {r, 0}, u"4|||1"_s);
    sheet.hyou_system(3, 0) = u"4"_s; // a leave kind 4 has no column
    sheet.hyou_system(4, 0) = u"0"_s;
    lay(sheet.hyou_day, {strip::count, 0}, u"9||||7||8"_s); // k1 has 7
    for (int time = 1; time <= 2; ++time)
        休暇出勤日計算処理(sheet, 1);
    EXPECT_EQ(cells_from(sheet.hyou_day, strip::count, 0), u"9|||2|7||8"_s);
    休暇出勤日計算処理(sheet, 0);
    EXPECT_EQ(cells_from(sheet.hyou_day, strip::count, 0), u"9|||3|||8"_s);
}
