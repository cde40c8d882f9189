#include "entry/sheet_builder.h"
#include "entry/why.h"

#include <gtest/gtest.h>

#include <random>

using namespace entry;

namespace {

/// Days of four bands of three categories, some of which overlap, ask for the clock-in or take their break off.
class AnyDay {
public:
    MonthSheet sheet = month_sheet({11, 12, 13});

    void shuffle() {
        sheet.kyuflg = BreakHandling(up_to(1));
        for (int number = 1; number <= 4; ++number)
            every_day(sheet, number, any_band());
        const QString in = any_clock();
        if (up_to(4) > 0)
            calculate(sheet, 2, in, any_clock());
        else
            calculate(sheet, 2, in, {});
        if (up_to(9) > 0)
            return;
        sheet.hyou(2, col::break_time) = u"0:45"_s;
        calculate_day(sheet, 2, col::break_time);
    }

private:
    int up_to(int most) { return std::uniform_int_distribution(0, most)(m_random); }
    int any_time() { return 100 * up_to(23) + up_to(59); }
    QString any_clock() { return time_to_text(ClockNumber{any_time()}); }
    Band any_band() {
        return band(
            11 + up_to(2), any_time(), any_time(), {{100 * up_to(9), up_to(59)}, {800, up_to(59)}}, up_to(3) == 0);
    }

    std::mt19937 m_random{20261125};
};

minutes sum_of(const WhySum& sum) {
    minutes total(0);
    for (const WhyTerm& term : sum.terms)
        total += term.time;
    return total;
}

} // namespace

TEST(Why, WhatIsExplainedAddsUpToTheFigureInTheCellInTenThousandDays) {
    AnyDay day;
    int added_up = 0;
    for (int i = 0; i < 10'000; ++i) {
        day.shuffle();
        const auto why = why_of(day.sheet, 2);
        ASSERT_TRUE(why);
        for (const WhySum& sum : why->sums) {
            SCOPED_TRACE(QString(u"day %1: %2"_s).arg(i).arg(text_of(sum)).toStdString());
            if (sum_of(sum) < minutes(0)) // a break that is longer than what it is taken off: a cell shows no sign
                continue;
            ASSERT_EQ(minutes_to_time(sum_of(sum)), clock_of(day.sheet.hyou(2, sum.column)));
            added_up += sum.terms.size() > 1;
        }
        for (int column = col::first_category; column < day.sheet.hyou.Cols(); ++column) {
            const bool told = std::ranges::count(why->sums, column, &WhySum::column) == 1;
            ASSERT_TRUE(told || clock_of(day.sheet.hyou(2, column)).value == 0) << i << ": column " << column;
        }
    }
    EXPECT_GT(added_up, 10'000);
}

TEST(Why, ABandThatGivesTheDayNothingSaysWhyAndAFigureThatStandsOtherwiseIsTold) {
    MonthSheet sheet = month_sheet({11});
    sheet.hyou(row::heading, col::first_category) = u"普通"_s;
    every_day(sheet, 1, band(11, 1300, 1700));
    every_day(sheet, 2, band(11, 800, 1200, {{300, 15}}, true));
    every_day(sheet, 3, band(99, 1800, 2000));
    sheet.kyuflg = BreakHandling::Deducted;
    calculate(sheet, 2, u"7:45"_s, u"17:00"_s);
    auto why = why_of(sheet, 2);
    QStringList remarks;
    for (const WhyBand& told : why->bands)
        remarks << told.remark;
    EXPECT_EQ(remarks, (QStringList{u"出社がこの時間帯の中にあるときだけ数えます"_s,
                           u"同じ種類の後の時間帯の値になります"_s, u"勤務種類がありません"_s}));
    EXPECT_EQ(text_of(why->sums.last()), u"在社 9:15 − 休憩 0:00 ＝ 勤務 9:15"_s);

    sheet.hyou(2, col::work_time) = u"9:00"_s;
    why = why_of(sheet, 2);
    EXPECT_EQ(text_of(why->sums.last()), u"在社 9:15 − 休憩 0:00 ＝ 勤務 9:15（表は 9:00）"_s);
    EXPECT_FALSE(why_of(sheet, 3));
}
