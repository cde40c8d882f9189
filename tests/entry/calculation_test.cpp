#include "entry/sheet_builder.h"

#include <QMap>
#include <gtest/gtest.h>

using namespace entry;

namespace {

constexpr int A = 11;
constexpr int B = 12;
constexpr int C = 13;

/// Break, work time and the hours of the first two categories.
QString day(const MonthSheet& sheet, int r) {
    return cells_from(sheet.hyou, r, col::break_time, 2) + u'|' + cells_from(sheet.hyou, r, col::first_category, 2);
}

QString hours_in(const Band& made, const QString& in, const QString& out) {
    MonthSheet sheet = month_sheet({A});
    every_day(sheet, 1, made);
    calculate(sheet, 1, in, out);
    return sheet.hyou(1, 8);
}

} // namespace

TEST(DayCalculation, AStayIsCutIntoTheBandsOfItsCategoriesAndTheirRulesMakeTheBreak) {
    const Band office = band(A, 830, 1730, {{600, 45}, {800, 100}}), evening = band(B, 1730, 2200),
               falling = band(A, 800, 2200, {{600, 100}, {800, 30}, {1000, 10}});
    constexpr auto gross = BreakHandling::Included, net = BreakHandling::Deducted;
    struct Case {
        const char* what;
        QMap<int, Band> bands; ///< by their numbers
        BreakHandling breaks;
        QString in, out;
        QString figures; ///< break, work time and the hours of A and B
    };
    const Case cases[] = {
        {"the rule reached last is the break", {{1, office}, {2, evening}}, gross, u"8:15"_s, u"19:00"_s,
            u"1:00|9:45|9:00|1:30"_s},
        {"the break is taken off the category", {{1, office}, {2, evening}}, net, u"8:15"_s, u"19:00"_s,
            u"1:00|9:45|8:00|1:30"_s},
        {"a later band overwrites the earlier one", {{1, band(A, 800, 1200)}, {2, band(A, 1300, 1700)}}, gross,
            u"8:00"_s, u"15:00"_s, u"|7:00|2:00|"_s},
        {"even with nothing", {{1, band(A, 800, 1200)}, {2, band(A, 1300, 1700)}}, gross, u"8:00"_s, u"12:00"_s,
            u"|4:00||"_s},
        {"rules look at all hours that stand, and the breaks of all bands add",
            {{1, band(A, 800, 1000, {{400, 10}})}, {2, band(A, 1000, 1500, {{400, 20}})},
                {3, band(B, 1500, 1700, {{200, 5}})}},
            gross, u"8:00"_s, u"17:00"_s, u"0:35|8:25|5:00|2:00"_s},
        // A comes first: its band 2 shortens B's column, and then B's own rule still reaches one hour.
        {"the band's number tells the column",
            {{1, band(B, 800, 1000, {{100, 15}})}, {2, band(A, 1000, 1200, {{100, 20}})}}, net, u"8:00"_s, u"12:00"_s,
            u"0:35|3:25|1:45|1:40"_s},
        {"a figure shortened before its turn is what its rules see",
            {{1, band(B, 800, 1000, {{200, 15}})}, {2, band(A, 1000, 1200, {{100, 20}})}}, net, u"8:00"_s, u"12:00"_s,
            u"0:20|3:40|2:00|1:40"_s},
        {"a rule not reached", {{1, falling}}, gross, u"8:00"_s, u"10:00"_s, u"|2:00|2:00|"_s},
        {"the first rule reached", {{1, falling}}, gross, u"8:00"_s, u"14:00"_s, u"1:00|5:00|6:00|"_s},
        {"a later rule wins with a shorter break", {{1, falling}}, gross, u"8:00"_s, u"16:00"_s, u"0:30|7:30|8:00|"_s},
        {"the last rule a minute off", {{1, falling}}, gross, u"8:00"_s, u"17:59"_s, u"0:30|9:29|9:59|"_s},
        {"the last rule reached", {{1, falling}}, gross, u"8:00"_s, u"18:00"_s, u"0:10|9:50|10:00|"_s},
        {"a number that points past the sheet", {{10, band(A, 800, 1700, {{600, 45}})}}, net, u"8:00"_s, u"17:00"_s,
            u"0:45|8:15|9:00|"_s},
    };
    for (const Case& c : cases) {
        MonthSheet sheet = month_sheet({A, B, C});
        sheet.kyuflg = c.breaks;
        for (const auto& [number, made] : c.bands.asKeyValueRange())
            every_day(sheet, number, made);
        lay(sheet.hyou, {1, col::first_category}, u"2:00||0:45"_s);
        calculate(sheet, 1, c.in, c.out);
        for (const char* again : {"", "calculated again"}) {
            EXPECT_EQ(day(sheet, 1), c.figures) << c.what << again;
            EXPECT_EQ(sheet.hyou(1, 10), u"0:45"_s) << "a category without a band on this weekday keeps its figure";
            出勤集計処理(sheet, 1);
        }
    }
}

TEST(DayCalculation, BandsMeasureTheStayFromTheClockInToItsEndOnTheSameOrTheNextDay) {
    struct Case {
        const char* what;
        Band made;
        QString in, out, hours;
    };
    const Case cases[] = {
        {"night shift", band(A, 2200, 500), u"21:50"_s, u"5:20"_s, u"7:00"_s},
        {"night shift begun late and left early", band(A, 2200, 500), u"23:10"_s, u"4:59"_s, u"5:49"_s},
        {"small hours are not moved to the next day", band(A, 0, 500), u"22:00"_s, u"5:00"_s, u""_s},
        {"a band of no length", band(A, 900, 900), u"8:00"_s, u"17:00"_s, u""_s},
        {"equal times are no time", band(A, 800, 1700), u"9:00"_s, u"9:00"_s, u""_s},
        {"clock-in at the band's end", band(A, 800, 1200), u"12:00"_s, u"17:00"_s, u""_s},
        {"clock-out at the band's start", band(A, 1200, 1700), u"8:00"_s, u"12:00"_s, u""_s},
        {"stay inside the band", band(A, 800, 1700), u"9:05"_s, u"9:07"_s, u"0:02"_s},
        {"clock-in only runs to midnight", band(A, 2200, 500), u"8:00"_s, u""_s, u"2:00"_s},
        {"clock-out only starts at midnight", band(A, 800, 1700), u""_s, u"17:00"_s, u"9:00"_s},
        {"start-of-work band begun before it", band(A, 800, 1700, {}, true), u""_s, u"17:00"_s, u""_s},
        {"start-of-work band begun at its start", band(A, 800, 1700, {}, true), u"8:00"_s, u"17:30"_s, u"9:00"_s},
        {"start-of-work band begun at its end", band(A, 800, 1700, {}, true), u"17:00"_s, u"18:00"_s, u""_s},
        {"start-of-work band begun after it", band(A, 800, 1700, {}, true), u"17:01"_s, u"18:00"_s, u""_s},
    };
    for (const Case& c : cases)
        EXPECT_EQ(hours_in(c.made, c.in, c.out), c.hours) << c.what;
}

TEST(DayCalculation, TheBandsOfTheDaysOwnWeekdayApply) {
    MonthSheet sheet = month_sheet({A});
    sheet.band_table[0][1] = band(A, 800, 1000); // Sunday
    sheet.band_table[6][1] = band(A, 800, 1100); // Saturday
    for (int r = 1; r <= 7; ++r)
        calculate(sheet, r, u"8:00"_s, u"17:00"_s);
    EXPECT_EQ(sheet.hyou(5, 8) + u'|' + sheet.hyou(6, 8) + u'|' + sheet.hyou(7, 8), u"|3:00|2:00"_s)
        << "from Friday on";
}

TEST(DayCalculation, TakingNothingOffAnEmptyFigureLeavesAZero) {
    MonthSheet sheet = month_sheet({A, B});
    sheet.kyuflg = BreakHandling::Deducted;
    every_day(sheet, 2, band(A, 800, 1700));
    calculate(sheet, 1, u"8:00"_s, u"17:00"_s);
    EXPECT_EQ(sheet.hyou(1, 9), u"0:00"_s);
    EXPECT_EQ(count_under(sheet, u"12"_s), u"1"_s) << "a zero is a figure to the count";
    EXPECT_EQ(sheet.hyou(row::total, 9), u""_s);
}

TEST(DayCalculation, ABreakLongerThanTheStayGoesThroughTheConversionsAsItIs) {
    MonthSheet sheet = month_sheet({});
    lay(sheet.hyou, {1, col::clock_in}, u"8:00|9:00|2:30"_s);
    calculate_day(sheet, 1, col::break_time);
    EXPECT_EQ(sheet.hyou(1, col::work_time), u"-1:30"_s);
}

TEST(DayCalculation, AnImpossibleClockTimeIsBlankedByItsLastFourDigits) {
    const std::pair<QString, QString> cases[] = {{u"23:59"_s, u"23:59"_s}, {u"24:00"_s, u""_s}, {u"25:00"_s, u""_s},
        {u"99:59"_s, u""_s}, {u"8:60"_s, u""_s}, {u"123:45"_s, u"123:45"_s}, {u"1234:00"_s, u""_s},
        {u"1234567"_s, u""_s}, {u"-1:00"_s, u""_s}, {u"1:-5"_s, u""_s}};
    for (const auto& [typed, stands] : cases)
        for (const int column : {col::clock_in, col::clock_out}) {
            MonthSheet sheet = month_sheet({});
            sheet.hyou(1, column) = typed;
            calculate_day(sheet, 1, col::clock_in);
            EXPECT_EQ(sheet.hyou(1, column), stands) << typed.toStdString() << " in " << column;
        }
}

TEST(DayCalculation, OnlyClockAndBreakCellsStartItAndClockCellsAloneAreChecked) {
    for (int column = 0; column < 9; ++column) {
        MonthSheet sheet = month_sheet({A});
        lay(sheet.hyou, {1, col::clock_in}, u"8:00|25:00"_s);
        calculate_day(sheet, 1, column);
        EXPECT_EQ(!sheet.hyou(1, col::work_time).isEmpty(), column >= 2 && column <= 4) << column;
        EXPECT_EQ(sheet.hyou(1, col::clock_out).isEmpty(), column == 2 || column == 3) << column;
    }
}

TEST(DayCalculation, ARowThatIsNoDayIsOnlyCheckedAndTheMonthIsNotSummed) {
    for (const int r : {31, 32, 33, 40}) {
        MonthSheet sheet = month_sheet({A}, 2);
        sheet.hyou(1, 5) = u"1:00"_s;
        calculate(sheet, r, u"25:00"_s, u"9:00"_s);
        EXPECT_EQ(cells_from(sheet.hyou, r, col::clock_in, 2), u"|9:00"_s) << r;
        EXPECT_EQ(sheet.hyou(row::total, col::work_time) + sheet.mark(1), u""_s) << r;
    }
}

TEST(DayCalculation, EveryStayOfTheDayFillsAWholeDaysBandsExactly) {
    MonthSheet sheet = month_sheet({A, B});
    every_day(sheet, 1, band(A, 0, 1200));
    every_day(sheet, 2, band(B, 1200, 2359));
    for (int in = 0; in < 1439; in += 7)
        for (int out = in; out < 1440; out += 11) {
            calculate(
                sheet, 1, time_to_text(minutes_to_time(minutes(in))), time_to_text(minutes_to_time(minutes(out))));
            const minutes in_bands = minutes_of(sheet.hyou(1, 8)) + minutes_of(sheet.hyou(1, 9));
            ASSERT_EQ(in_bands.count(), out - in) << in << " to " << out;
            ASSERT_EQ(minutes_of(sheet.hyou(1, 5)).count(), out - in) << in << " to " << out;
        }
}
