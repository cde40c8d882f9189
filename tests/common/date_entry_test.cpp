#include "base/literals.h"
#include "common/date_entry.h"

#include <gtest/gtest.h>

using namespace base;
using common::Blank;
using common::DateEntry;

namespace {

base::Settings with(int date_style, int forward_date) {
    base::Settings settings;
    settings.date_style = date_style;
    settings.forward_date = forward_date;
    settings.era_start[0] = 19890108;
    settings.era_end[0] = 99999999;
    settings.era_offset[0] = 1988;
    return settings;
}

struct Typed {
    QString text;
    QDate today;
    int date;
};

void expect_dates(const base::Settings& settings, const std::vector<Typed>& cases) {
    for (const Typed& c : cases)
        EXPECT_EQ(DateEntry(settings).日付簡単入力(c.text, Blank::TakesLastDate, c.today), c.date)
            << c.text.toStdString() << " typed on " << c.today.toString(Qt::ISODate).toStdString();
}

const QDate oct5(2004, 10, 5);

} // namespace

TEST(DateEntry, AFullDateOrMonthAndDayCountAsTyped) {
    expect_dates(with(0, 10), {{u"20041003"_s, oct5, 20041003}, {u"1003"_s, oct5, 20041003}, {u"103"_s, oct5, 20040103},
                                  {u" 1231 "_s, oct5, 20041231}, {u"2004/10/3"_s, oct5, 20041003}});
    expect_dates(
        with(1, 10), {{u"19861003"_s, QDate(1986, 10, 5), 19861003}, {u"161003"_s, oct5, 20041003},
                         {u"91003"_s, oct5, 19971003}, {u"1003"_s, oct5, 20041003}, {u"16/10/3"_s, oct5, 20041003}});
}

TEST(DateEntry, WhatMakesNoDateGivesZero) {
    expect_dates(with(0, 10), {{u"20040230"_s, oct5, 0}, {u"1301"_s, oct5, 0}, {u"0"_s, oct5, 0}, {u"32"_s, oct5, 0},
                                  {u"161003"_s, oct5, 0}, {u"123456789"_s, oct5, 0}, {u"abc"_s, oct5, 0}});
    expect_dates(with(1, 10), {{u"20041003"_s, oct5, 0}});
}

TEST(DateEntry, ADayAloneLiesUpToTheForwardDaysAheadAndOtherwiseBehind) {
    const QDate oct25(2004, 10, 25), jan3(2005, 1, 3), dec28(2004, 12, 28), apr30(2004, 4, 30), mar31(2005, 3, 31),
        feb28(2005, 2, 28);
    expect_dates(with(0, 10),
        {{u"3"_s, oct5, 20041003}, {u"15"_s, oct5, 20041015}, {u"16"_s, oct5, 20040916}, {u"31"_s, oct5, 0},
            {u"4"_s, oct25, 20041104}, {u"5"_s, oct25, 20041005}, {u"31"_s, oct25, 20041031}, {u"20"_s, jan3, 20041220},
            {u"7"_s, dec28, 20050107}, {u"8"_s, dec28, 20041208}});
    expect_dates(with(0, 0), {{u"5"_s, oct5, 20041005}, {u"6"_s, oct5, 20040906}, {u"31"_s, apr30, 20040331},
                                 {u"30"_s, mar31, 20050330}, {u"31"_s, mar31, 20050331}, {u"29"_s, feb28, 20050129}});
}

TEST(DateEntry, AnEmptyFieldTakesTheDateAcceptedLast) {
    const auto settings = with(0, 10);
    DateEntry entry(settings);
    EXPECT_EQ(entry.日付簡単入力(u" "_s, Blank::StaysBlank, oct5), std::nullopt);
    EXPECT_EQ(entry.日付簡単入力(u""_s, Blank::TakesLastDate, oct5), 20041005) << "today, where nothing was accepted";
    EXPECT_EQ(entry.日付簡単入力(u"903"_s, Blank::TakesLastDate, oct5), 20040903);
    EXPECT_EQ(entry.日付簡単入力(u"999"_s, Blank::TakesLastDate, oct5), 0);
    EXPECT_EQ(entry.日付簡単入力(u""_s, Blank::TakesLastDate, oct5), 20040903) << "a refused date changes nothing";
}
