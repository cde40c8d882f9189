#include "entry/findings.h"
#include "entry/notices.h"
#include "entry/sheet_builder.h"
#include "entry/tally.h"
#include "entry/unread_days.h"

#include <gtest/gtest.h>

using namespace entry;

namespace {

constexpr int A = 11;

/// March 2004, 8:30 to 17:30 every day, all of it counted.
MonthSheet office_month() {
    MonthSheet sheet = month_sheet({A});
    sheet.category_list = {{A, u"普通"_s}};
    every_day(sheet, 1, band(A, 830, 1730, {{600, 45}}));
    tally_month(sheet);
    return sheet;
}

QStringList told(const MonthSheet& sheet, const FindingKinds& left_out = {}) {
    QStringList texts;
    for (const Finding& f : findings(sheet, left_out))
        texts << u"%1 %2"_s.arg(f.row).arg(f.text);
    return texts;
}

} // namespace

TEST(Findings, WhatIsOffInADayIsToldWithItsFiguresAndNothingElseIs) {
    struct Case {
        const char* what;
        QString in, out, pause;
        QStringList told;
    };
    const Case cases[] = {
        {"a day as it should be", u"8:30"_s, u"17:30"_s, {}, {}},
        {"no clock-out", u"8:30"_s, {}, {}, {u"2 退社時間がありません"_s}},
        {"no clock-in", {}, u"17:30"_s, {}, {u"2 出社時間がありません"_s}},
        {"before and after the band", u"8:00"_s, u"18:15"_s, {}, {u"2 1:15 がどの時間帯にも入っていません"_s}},
        {"a break longer than the stay", u"8:30"_s, u"9:30"_s, u"1:01"_s,
            {u"2 休憩 1:01 が在社 1:00 より長くなっています"_s}},
        {"sixteen hours", u"8:30"_s, u"0:30"_s, {}, {u"2 7:00 がどの時間帯にも入っていません"_s}},
        {"a minute more", u"8:30"_s, u"0:31"_s, {},
            {u"2 7:01 がどの時間帯にも入っていません"_s, u"2 在社が 16:01 です"_s}},
    };
    for (const Case& c : cases) {
        MonthSheet sheet = office_month();
        calculate(sheet, 2, c.in, c.out);
        if (!c.pause.isEmpty()) {
            sheet.hyou(2, col::break_time) = c.pause;
            calculate_day(sheet, 2, col::break_time);
        }
        EXPECT_EQ(told(sheet), c.told) << c.what;
    }
}

TEST(Findings, OverlappingBandsAndBandsThatCountFromInsideAreMeasuredOnce) {
    MonthSheet sheet = office_month();
    every_day(sheet, 2, band(A, 1700, 2200));
    calculate(sheet, 2, u"8:30"_s, u"22:30"_s);
    EXPECT_EQ(told(sheet), QStringList{u"2 0:30 がどの時間帯にも入っていません"_s});
    every_day(sheet, 2, band(A, 1800, 2200, {}, /*from_inside=*/true));
    EXPECT_EQ(told(sheet).value(0), u"2 5:00 がどの時間帯にも入っていません"_s);
    sheet.category_list.clear();
    EXPECT_EQ(told(sheet), QStringList()) << "without a work type there are no bands to lie outside of";
}

TEST(Findings, ADayThatWaitsForItsCalculationAndSumsThatDontAddUpAreTold) {
    MonthSheet sheet = office_month();
    calculate(sheet, 2, u"8:30"_s, u"17:30"_s);
    sheet.hyou(row::total, col::break_time) = u"0:50"_s;
    sheet.hyou_day(strip::count, strip::worked_column) = u"2"_s;
    EXPECT_EQ(told(sheet),
        QStringList({u"32 休憩時間の合計が 0:50、日の合計は 0:45 です"_s, u"32 出勤の日数が 2、数えると 1 です"_s}));
    EXPECT_EQ(told(sheet, {FindingKind::Recount}), QStringList());
    sheet.mark(2) = u"2"_s;
    EXPECT_EQ(told(sheet), QStringList{u"2 まだ計算していません"_s}) << "its calculation makes the sums anew";
    EXPECT_TRUE(calculation_helps(findings(sheet)));
    EXPECT_FALSE(calculation_helps(findings(sheet, {FindingKind::NotCalculated})));
}

TEST(Findings, JanuaryDaysOfAMonthThatBeginsInDecemberAreToldOnceTheyAreTyped) {
    MonthSheet sheet = month_sheet({A}, 12, 21);
    tally_month(sheet);
    for (int r = row::first_day; r <= row::last_day; ++r)
        sheet.mark(r).clear();
    EXPECT_EQ(told(sheet), QStringList());
    sheet.mark(11) = sheet.mark(12) = u"1"_s;
    EXPECT_EQ(told(sheet), QStringList{u"12 登録したあと、この画面では呼び出せません"_s});
    sheet.mark(12) = u"2"_s;
    sheet.hyou(12, col::clock_in) = u"8:00"_s;
    sheet.hyou(12, col::clock_out) = u"12:00"_s;
    const base::Sheet days = days_not_read_back(sheet, base::Settings(), QDate(2004, 12, 1));
    EXPECT_EQ(days.Rows(), 2);
    EXPECT_EQ(cells_from(days, 1, 0).split(u'|').mid(0, 6).join(u'|'), u"2005/1/1|土|8:00|12:00||4:00"_s)
        << "as it stands once it is calculated";
}

TEST(Notices, WhatACellMakesOfAFigureIsSaidWhereItMayNotBeMeantSo) {
    struct Case {
        int column;
        QString typed, said;
    };
    const Case cases[] = {
        {col::clock_in, u"830"_s, {}},
        {col::clock_out, u"2530"_s, u"25:30 は 130 と入力します"_s},
        {col::clock_out, u"2400"_s, u"24:00 は 0 と入力します"_s},
        {col::clock_out, u"4800"_s, u"48:00 は時刻になりません"_s},
        {col::clock_in, u"875"_s, u"8:75 は時刻になりません（分は 59 まで）"_s},
        {col::clock_in, u"8"_s, u"8 は 0:08 です（8時は 800）"_s},
        {col::clock_in, u"23"_s, u"23 は 0:23 です（23時は 2300）"_s},
        {col::clock_in, u"24"_s, {}},
        {col::clock_in, u"0"_s, {}},
        {col::clock_in, u"005"_s, {}},
        {col::break_time, u"1"_s, u"1 は 0:01 です（1時間は 100）"_s},
        {col::break_time, u"45"_s, {}},
        {col::break_time, u"2530"_s, {}},
        {col::remark, QString(256, u'あ'), u"備考は 255文字までです"_s},
    };
    for (const Case& c : cases)
        EXPECT_EQ(typed_notice(c.column, c.typed), c.said) << c.column << ' ' << c.typed.toStdString();
}
