#include "entry/sheet_builder.h"
#include "entry/tally.h"

#include <gtest/gtest.h>

using namespace entry;

namespace {

constexpr int A = 11;
constexpr int B = 12;

QString totals(const MonthSheet& sheet) {
    return cells_from(sheet.hyou, row::total, col::clock_in).join(u'|');
}

} // namespace

TEST(MonthTally, HoursAreSummedAColumnAndClockTimesAreNot) {
    MonthSheet sheet = month_sheet({A, B});
    for (int r = 1; r <= 31; ++r) {
        sheet.hyou(r, 2) = u"8:00"_s;
        sheet.hyou(r, 4) = u"1:00"_s;
        sheet.hyou(r, 5) = u"10:50"_s;
        sheet.hyou(r, 6) = u"7:00"_s;
        sheet.hyou(r, 8) = u"40:01"_s;
    }
    tally_month(sheet);
    EXPECT_EQ(totals(sheet), u"||31:00|335:50|||1240:31|"_s);
}

TEST(MonthTally, DaysWithAndWithoutWorkMakeUpThePeriod) {
    struct Case {
        int month, start_day, worked;
        QString with_work, without;
    };
    const Case cases[] = {
        {4, 1, 20, u"20"_s, u"10"_s},
        {2, 1, 1, u"1"_s, u"28"_s},
        {3, 21, 0, u""_s, u"31"_s},
        {4, 1, 30, u"30"_s, u"0"_s},
    };
    for (const Case& c : cases) {
        MonthSheet sheet = month_sheet({}, c.month, c.start_day);
        for (int r = 1; r <= c.worked; ++r)
            sheet.hyou(r, 5) = u"8:00"_s;
        tally_month(sheet);
        EXPECT_EQ(count_under(sheet, u"-1"_s), c.with_work) << c.month;
        EXPECT_EQ(count_under(sheet, u"-2"_s), c.without) << c.month;
    }
}

TEST(MonthTally, AMonthOf28DaysHasNoDay29) {
    MonthSheet sheet = month_sheet({});
    書式設定(sheet, CompanyMonth(2005, 2, 1));
    tally_month(sheet);
    EXPECT_EQ(count_under(sheet, u"-2"_s), u"28"_s);
    EXPECT_EQ(sheet.mark(28), u"1"_s);
    EXPECT_EQ(sheet.mark(29), u""_s) << "past the end nothing is stamped";
    EXPECT_EQ(sheet.hyou(29, 7), u""_s);
}

TEST(MonthTally, EveryEmptyDayTakesTheDefaultKindAndIsToBeSaved) {
    MonthSheet sheet = month_sheet({}, 4);
    sheet.hyou(1, 5) = u"8:00"_s;
    sheet.hyou_system(2, 0) = u"1"_s;
    tally_month(sheet);
    EXPECT_EQ(sheet.mark(1), u""_s) << "it has work";
    EXPECT_EQ(sheet.mark(2), u""_s) << "it has a kind";
    EXPECT_EQ(cells_from(sheet.hyou_system, 30, 0), QStringList({u"2"_s, u"公休"_s, u"1"_s, u""_s}));
    EXPECT_EQ(sheet.hyou(30, 7), u"公休"_s);
    EXPECT_EQ(count_under(sheet, u"k2"_s), u"28"_s);
    EXPECT_EQ(count_under(sheet, u"k1"_s), u"1"_s);
}

TEST(MonthTally, ACategoryCountsTheDaysWithAnyTimeInItAndNotAKindOfItsNumber) {
    MonthSheet sheet = month_sheet({A, B, 3});
    sheet.hyou(2, 10) = u"1:00"_s;
    sheet.hyou(1, 8) = u"0:01"_s;
    sheet.hyou(31, 8) = u"8:00"_s;
    tally_month(sheet);
    EXPECT_EQ(count_under(sheet, u"11"_s), u"2"_s);
    EXPECT_EQ(count_under(sheet, u"12"_s), u""_s) << "nothing is blank";
    EXPECT_EQ(count_under(sheet, u"3"_s), u"1"_s);
    EXPECT_EQ(count_under(sheet, u"s3"_s), u""_s);
}

TEST(MonthTally, CountsAreBuiltAnewEachTime) {
    MonthSheet sheet = month_sheet({A});
    sheet.hyou_day(strip::count, 3) = u"17"_s;
    sheet.hyou(1, 8) = u"1:00"_s;
    tally_month(sheet);
    tally_month(sheet);
    EXPECT_EQ(count_under(sheet, u"s4"_s), u""_s);
    EXPECT_EQ(count_under(sheet, u"11"_s), u"1"_s);
}

TEST(MonthTally, WorkOnADayPastThePeriodStillAddsToTheSums) {
    MonthSheet sheet = month_sheet({A}, 4);
    sheet.hyou(31, 8) = u"1:00"_s;
    tally_month(sheet);
    EXPECT_EQ(sheet.hyou(row::total, 8), u"1:00"_s);
}

TEST(KindCount, OneDayOnlyAddsAndAllDaysCountAnewLeavingTheOtherCounts) {
    MonthSheet sheet = month_sheet({A});
    for (const int r : {1, 2, 31}) {
        sheet.hyou_system(r, 0) = u"4"_s;
        sheet.hyou_system(r, 3) = u"1"_s;
    }
    sheet.hyou_system(3, 0) = u"4"_s; // a leave kind 4 has no column
    sheet.hyou_system(4, 0) = u"0"_s;
    sheet.hyou_day(strip::count, 0) = u"9"_s;
    sheet.hyou_day(strip::count, 6) = u"8"_s;
    sheet.hyou_day(strip::count, 4) = u"7"_s;
    休暇出勤日計算処理(sheet, 1);
    休暇出勤日計算処理(sheet, 1);
    EXPECT_EQ(count_under(sheet, u"s4"_s), u"2"_s);
    休暇出勤日計算処理(sheet, 0);
    EXPECT_EQ(count_under(sheet, u"s4"_s), u"3"_s);
    EXPECT_EQ(count_under(sheet, u"k1"_s), u""_s);
    EXPECT_EQ(count_under(sheet, u"-1"_s), u"9"_s);
    EXPECT_EQ(count_under(sheet, u"11"_s), u"8"_s);
}
