#include "base/era.h"
#include "base/literals.h"

#include <gtest/gtest.h>

using namespace base;

namespace {

base::Settings with_eras(int date_style) {
    base::Settings s;
    s.date_style = date_style;
    s.era_start = {20190501, 19890108, 19261225};
    s.era_end = {99999999, 20190430, 19890107};
    s.era_name = {u"令和"_s, u"平成"_s, u"昭和"_s};
    s.era_offset = {2018, 1988, 1925};
    return s;
}

const QDate heisei_day(2004, 10, 5);

} // namespace

TEST(Era, TypedEraYearsBecomeWesternOnes) {
    const auto s = with_eras(1);
    EXPECT_EQ(和暦西暦変換(u"161003"_s, s, heisei_day), u"20041003"_s);
    EXPECT_EQ(和暦西暦変換(u"16/10/3"_s, s, heisei_day), u"20041003"_s);
    EXPECT_EQ(和暦西暦変換(u"0"_s, s, heisei_day), u"0"_s);
    EXPECT_EQ(western_date_number(u"16/3/21"_s, s, heisei_day), 20040321);
}

TEST(Era, TheEraOfTodayServesAllDates) {
    const auto s = with_eras(1);
    EXPECT_EQ(日付表示変換(u"20041003"_s, s, heisei_day), u"16/10/3"_s);
    EXPECT_EQ(日付表示変換(u"20041003"_s, s, QDate(2026, 1, 1)), u"-14/10/3"_s) << "before the present era";
    EXPECT_EQ(日付文字変換(u"20041003"_s, s, heisei_day), u"平成 16年 10月 3日"_s);
    EXPECT_EQ(日付表示変換(u"20190430"_s, s, QDate(2019, 4, 30)), u"31/4/30"_s) << "an era's last day is still its own";
    EXPECT_EQ(日付表示変換(u"20190501"_s, s, QDate(2019, 5, 1)), u"1/5/1"_s);
}

TEST(Era, WesternDisplayShowsSlashesWithoutZeros) {
    const auto s = with_eras(0);
    EXPECT_EQ(日付表示変換(u"20041003"_s, s, heisei_day), u"2004/10/3"_s);
    EXPECT_EQ(日付表示変換(u"2004/1/3"_s, s, heisei_day), u"2004/01/03"_s);
    EXPECT_EQ(日付文字変換(u"20041003"_s, s, heisei_day), u"2004年 10月 3日"_s);
    EXPECT_EQ(western_date_number(u"2004/3/21"_s, s, heisei_day), 20040321);
    EXPECT_EQ(日付連結(u"16/1/3"_s, YearForm::Era), u"160103"_s);
}

TEST(Era, AnEmptyEraTableChangesNothing) {
    base::Settings s;
    s.date_style = 1;
    EXPECT_EQ(和暦西暦変換(u"161003"_s, s, heisei_day), u"161003"_s);
    EXPECT_EQ(日付表示変換(u"20041003"_s, s, heisei_day), u"20041003"_s);
    EXPECT_EQ(日付文字変換(u"20041003"_s, s, heisei_day), u"20041003"_s);
}

TEST(Era, WhereThereIsNoDateNoneIsShown) {
    for (const int date_style : {0, 1})
        for (const QString& none : {u""_s, u"0"_s}) {
            const auto s = with_eras(date_style);
            EXPECT_EQ(日付表示変換(none, s, heisei_day), none);
            EXPECT_EQ(日付文字変換(none, s, heisei_day), none);
            EXPECT_EQ(和暦西暦変換(none, s, heisei_day), none);
        }
    EXPECT_EQ(和暦西暦変換(u"91003"_s, with_eras(1), heisei_day), u"91003"_s) << "too short for a year of two digits";
}
