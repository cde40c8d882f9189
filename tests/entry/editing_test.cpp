#include "base/combo_item.h"
#include "entry/editing.h"
#include "entry/sheet_builder.h"

#include <gtest/gtest.h>

using namespace entry;

namespace {

constexpr int A = 11;

class Editing : public testing::Test {
protected:
    Editing() {
        every_day(sheet, 1, band(A, 830, 1730, {{600, 100}}));
        editors.kyucom.items = {QString(10, QChar(0x3000)) + u'0',
            base::combo_item(base::day_kind_item, u"有休", {1, 0}),
            base::combo_item(base::day_kind_item, u"休日出勤", {4, 1})};
    }

    void go_to(int r, int column) {
        sheet.hyou.SetCursor({r, column});
        commit(sheet, editors);
        入力フォーム(sheet, editors);
    }

    bool press(int key_code) { return move_by_key(sheet, editors, key_code); }

    Cell cursor() const { return {sheet.hyou.Row(), sheet.hyou.Col()}; }

    MonthSheet sheet = month_sheet({A, 12});
    Editors editors;
};

} // namespace

TEST_F(Editing, WhatIsTypedInTheBoxReachesTheCellAsTimeText) {
    const std::pair<QString, QString> cases[] = {{u"830"_s, u"8:30"_s}, {u"8"_s, u"0:08"_s}, {u"123"_s, u"1:23"_s},
        {u""_s, u""_s}, {u"2500"_s, u"25:00"_s}, {u"12345"_s, u"123:45"_s}, {u"123456"_s, u"1234:56"_s},
        {u"859"_s, u"8:59"_s}, {u"860"_s, u""_s}, {u"12399"_s, u""_s}, {u"1234512"_s, u"1234512"_s}, {u"-5"_s, u""_s}};
    for (const auto& [typed, stands] : cases) {
        sheet.hyou(1, 8) = u"7:00"_s;
        go_to(1, 8);
        editors.atai.text = typed;
        commit(sheet, editors);
        EXPECT_EQ(sheet.hyou(1, 8), stands) << typed.toStdString();
    }
}

TEST_F(Editing, TheBoxShowsBareDigitsAndARemarkAsItIsTrimmedTo255Characters) {
    lay(sheet.hyou, {1, col::clock_in}, u"8:05||||10:00 直行"_s);
    for (const auto& [column, text] : {std::pair(2, u"805"_s), {6, u"10:00 直行"_s}}) {
        go_to(1, column);
        EXPECT_EQ(editors.atai.text, text);
        EXPECT_EQ(editors.atai.input_method, column == 6 ? base::InputMethod::On : base::InputMethod::Off);
    }
    editors.atai.text = u"  "_s + QString(300, u'あ') + u"  "_s;
    commit(sheet, editors);
    EXPECT_EQ(sheet.hyou(1, 6), QString(255, u'あ'));
}

TEST_F(Editing, OnlyDigitsAndBackspaceStandInATimeCellAndATypedKeyMarksTheDay) {
    struct Case {
        int column, character;
        bool stands;
        QString mark;
    };
    const Case cases[] = {{4, u'9', true, u"2"_s}, {4, 8, true, u"2"_s}, {5, u'1', true, u"1"_s}, {8, 8, true, u"1"_s},
        {2, u':', false, u""_s}, {2, u'a', false, u""_s}, {8, u'/', false, u""_s}, {3, 13, false, u""_s},
        {6, u'a', true, u"1"_s}, {6, u'直', true, u"1"_s}};
    for (const Case& c : cases) {
        sheet.mark(3).clear();
        sheet.hyou.SetCursor({3, c.column});
        EXPECT_EQ(type_key(sheet, c.character), c.stands) << c.column << ' ' << c.character;
        EXPECT_EQ(sheet.mark(3), c.mark) << c.column << ' ' << c.character;
    }
}

TEST_F(Editing, TextInOnePieceLeavesItsDigitsInATimeCell) {
    sheet.hyou.SetCursor({3, 2});
    EXPECT_EQ(accept_text(sheet, u"時刻"_s) + sheet.mark(3), u""_s);
    EXPECT_EQ(accept_text(sheet, u"8:30分"_s) + sheet.mark(3), u"8302"_s);
    sheet.hyou.SetCursor({3, 6});
    EXPECT_EQ(accept_text(sheet, u"直行8"_s), u"直行8"_s);
}

TEST_F(Editing, KeysMoveWithinTheSheetAndPassColumn7Over) {
    struct Case {
        Cell from;
        int key_code;
        Cell to;
    };
    const Case cases[] = {{{1, 2}, key::enter, {1, 3}}, {{1, 4}, key::enter, {2, 2}}, {{5, 9}, key::enter, {6, 2}},
        {{32, 4}, key::enter, {33, 2}}, {{40, 4}, key::enter, {40, 4}}, {{1, 5}, key::right, {1, 6}},
        {{1, 6}, key::right, {1, 8}}, {{1, 9}, key::right, {1, 9}}, {{1, 8}, key::left, {1, 6}},
        {{1, 2}, key::left, {1, 2}}, {{31, 5}, key::down, {32, 5}}, {{32, 5}, key::down, {32, 5}},
        {{33, 2}, key::up, {32, 2}}, {{1, 5}, key::up, {1, 5}}, {{1, 5}, key::del, {1, 5}}};
    for (const Case& c : cases) {
        SCOPED_TRACE(u"key %1 at %2,%3"_s.arg(c.key_code).arg(c.from.row).arg(c.from.col).toStdString());
        go_to(c.from.row, c.from.col);
        EXPECT_EQ(press(c.key_code), c.to != c.from);
        EXPECT_EQ(cursor(), c.to);
    }
}

TEST_F(Editing, ARowThatIsNoDayTakesNoKind) {
    sheet = month_sheet({A}, 4);
    for (const int no_day : {31, int(row::total)}) {
        go_to(30, 7);
        go_to(no_day, 7);
        EXPECT_FALSE(editors.kyucom.visible || editors.kyucom.enabled);
        editors.kyucom.enabled = true;
        choose_kind(sheet, editors.kyucom, 1);
        EXPECT_EQ(sheet.hyou(no_day, 7) + sheet.mark(no_day) + count_under(sheet, u"k1"_s), u""_s) << no_day;
    }
}

TEST_F(Editing, TheBoxFollowsItsCellWhileTheSheetScrollsAndKeepsItsTextOutOfSight) {
    // Heading and seven rows fit; the two fixed columns and columns 2 to 5 fit, of which the last two count as outside.
    constexpr int height = 8 * 270 + 100;
    constexpr int width = 2 * 500 + 4 * 900 + 100;
    struct Case {
        Cell cell;
        int top_row, left_col;
        bool visible;
    };
    const Case cases[] = {{{3, 4}, 1, 2, true}, {{3, 5}, 1, 2, false}, {{7, 2}, 1, 2, true}, {{3, 2}, 4, 2, false},
        {{1, 2}, 1, 2, false}};
    for (const Case& c : cases) {
        go_to(c.cell.row, c.cell.col);
        editors.atai.text = u"830"_s;
        sheet.hyou.SetTopLeft(c.top_row, c.left_col);
        follow_scroll(sheet, editors, width, height);
        EXPECT_EQ(editors.atai.visible, c.visible) << c.cell.row << ',' << c.cell.col << " from " << c.left_col;
        commit(sheet, editors);
        EXPECT_EQ(sheet.hyou(c.cell.row, c.cell.col), u"8:30"_s);
    }
}

TEST_F(Editing, TheCountStripTakesDigitsItself) {
    struct Case {
        QString before;
        int character;
        QString after;
    };
    const Case cases[] = {{u""_s, u'1', u"1"_s}, {u"1"_s, u'2', u"12"_s}, {u""_s, u'0', u"0"_s}, {u"0"_s, u'5', u"5"_s},
        {u"123"_s, u'4', u"1,234"_s}, {u"1,234"_s, u'5', u"12,345"_s}, {u"12,345"_s, 8, u"1,234"_s}, {u"5"_s, 8, u""_s},
        {u"0"_s, 8, u""_s}, {u""_s, 8, u""_s}, {u""_s, u'-', u"-"_s}, {u"5"_s, u'-', u"5"_s}, {u"-"_s, u'5', u"-5"_s},
        {u"-"_s, 8, u""_s}, {u"-12"_s, 8, u"-1"_s}, {u"7"_s, u'x', u"7"_s}, {u"7"_s, 13, u"7"_s}};
    for (const Case& c : cases) {
        sheet.hyou_day.SetCursor({1, 3});
        sheet.hyou_day(strip::count, 3) = c.before;
        type_count(sheet.hyou_day, c.character);
        EXPECT_EQ(sheet.hyou_day(strip::count, 3), c.after) << c.before.toStdString() << ' ' << c.character;
    }
}
