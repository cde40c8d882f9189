#include "entry/fill.h"
#include "entry/sheet_builder.h"

#include <gtest/gtest.h>

using namespace entry;

namespace {

/// Bands 8:30 to 17:30 and on to 22:00 from Monday to Friday; Friday ends with the first one.
MonthSheet working_week(int month = 3) {
    MonthSheet sheet = month_sheet({11, 12}, month);
    for (int weekday = 1; weekday <= 5; ++weekday)
        sheet.band_table[weekday][1] = band(11, 830, 1730, {{600, 45}, {800, 100}});
    for (int weekday = 1; weekday <= 4; ++weekday)
        sheet.band_table[weekday][2] = band(12, 1730, 2200);
    return sheet;
}

QString times(const MonthSheet& sheet, int r) {
    return sheet.hyou(r, col::clock_in) + u'-' + sheet.hyou(r, col::clock_out);
}

const QString blank = u"-"_s;

} // namespace

TEST(Fill, BlankDaysGetTheStandardTimesAndWhatWasTypedStays) {
    MonthSheet sheet = working_week();
    calculate(sheet, 2, u"10:00"_s, u"19:00"_s); // gives the other days the standard kind
    sheet.hyou_system(3, record::kind_number) = u"1"_s;
    sheet.hyou_system(4, record::kind_number) = u"2"_s; // the standard kind, but chosen
    sheet.hyou_system(4, record::holiday_work) = u"0"_s;
    sheet.hyou(8, col::remark) = u"直行"_s;
    sheet.hyou(9, col::break_time) = u"0:30"_s;
    sheet.hyou(10, col::first_category) = u"3:00"_s;
    sheet.hyou(11, col::clock_in) = u"7:00"_s; // typed and not yet calculated
    sheet.mark(11) = u"2"_s;
    sheet.entry_cell = {15, col::remark};
    MonthSheet typed = sheet;
    calculate(typed, 1, u"8:30"_s, u"22:00"_s);

    MonthSheet tuesdays = sheet;
    EXPECT_EQ(fill(tuesdays, FillSource::StandardTimes, {2}, {}, Weekdays(1 << 2)), 5 - 2) << "two were typed";
    EXPECT_EQ(times(tuesdays, 1), blank);
    EXPECT_EQ(fill(sheet, FillSource::StandardTimes, {2}), 19 - 6) << "from Monday to Thursday, less those typed";
    EXPECT_EQ(cells_from(sheet.hyou, 1, 0), cells_from(typed.hyou, 1, 0)) << "as if it had been typed";
    EXPECT_EQ(sheet.hyou(1, col::work_time) + sheet.mark(1), u"12:301"_s);
    EXPECT_EQ(times(sheet, 8) + sheet.hyou(8, col::remark), u"8:30-22:00直行"_s);
    EXPECT_EQ(times(sheet, 2) + sheet.hyou(11, col::work_time), u"10:00-19:0016:00"_s);
    for (const int r : {3, 4, 5, 6, 7, 9, 10})
        EXPECT_EQ(times(sheet, r), blank) << r;
    EXPECT_EQ(sheet.entry_cell, (Cell{15, col::remark}));
    EXPECT_EQ(count_under(sheet, u"s3"_s), u"15"_s) << "the month is summed";
    EXPECT_EQ(fill(sheet, FillSource::StandardTimes, {1}, RowRange{5, 7}), 1) << "Friday has the first band alone";
    EXPECT_EQ(times(sheet, 5), u"8:30-17:30"_s);
}

TEST(Fill, StandardTimesGoFromTheFirstBandOfANormalDayToTheEndOfItsLast) {
    struct Row {
        Band first;
        Band second;
        NormalDay normal;
        QString times;
    };
    for (const Row& row : {Row{band(11, 500, 830), band(11, 830, 1730), {2}, u"5:00-17:30"_s},
             {band(11, 500, 830), band(11, 830, 1730), {2, 2}, u"8:30-17:30"_s},
             {band(11, 500, 830), band(11, 830, 1730), {1, 2}, blank}, {{}, band(11, 900, 1800), {2, 1}, blank},
             {band(12, 2200, 500), {}, {1}, u"22:00-5:00"_s}, {band(12, 1600, 2400), {}, {1}, u"16:00-0:00"_s},
             {{}, band(11, 900, 1800), {2}, u"9:00-18:00"_s}, {band(11, 900, 1800), {}, {2}, blank},
             {band(11, 900, 1800), {}, {}, blank}, {band(11, 900, 1800), {}, {99}, blank},
             {band(11, 900, 1800), band(12, 500, 800), {2}, blank},
             {band(11, 900, 1800), band(12, 1800, 900), {2}, blank}}) {
        MonthSheet sheet = month_sheet({11, 12});
        every_day(sheet, 1, row.first);
        every_day(sheet, 2, row.second);
        EXPECT_EQ(fill(sheet, FillSource::StandardTimes, row.normal), row.times == blank ? 0 : 31);
        EXPECT_EQ(times(sheet, 1), row.times);
    }
}

TEST(Fill, TheDayAboveAndTheWeekBeforeServeAsTheyAreFilled) {
    MonthSheet sheet = working_week(2); // February 2004 begins on a Sunday and has 29 days
    calculate(sheet, 5, u"9:00"_s, u"1:30"_s);
    sheet.hyou(12, col::clock_in) = u"8:00"_s;
    EXPECT_EQ(fill(sheet, FillSource::DayAbove, {}), 20 - 2 - 3) << "weekdays, less two typed and three before them";
    EXPECT_EQ(times(sheet, 4) + times(sheet, 6) + times(sheet, 7) + times(sheet, 9), u"-9:00-1:30-9:00-1:30"_s);
    EXPECT_EQ(times(sheet, 13), u"9:00-1:30"_s) << "a day with one time serves nobody";

    sheet = working_week(2);
    calculate(sheet, 1, u"9:00"_s, u"12:00"_s);
    calculate(sheet, 10, u"8:00"_s, u"15:00"_s);
    EXPECT_EQ(fill(sheet, FillSource::SameWeekdayLastWeek, {}, RowRange{-3, 40}), 6) << "a range has Sundays as well";
    EXPECT_EQ(times(sheet, 8) + times(sheet, 29) + times(sheet, 24), u"9:00-12:009:00-12:008:00-15:00"_s);
    EXPECT_EQ(times(sheet, 30) + times(sheet, 31) + times(sheet, row::total), blank + blank + blank);
    EXPECT_EQ(fill(sheet, FillSource::DayAbove, {}, RowRange{20, 19}), 0);
}
