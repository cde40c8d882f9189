#include "ui/entry/ent_rovena_page.h"

#include "support/person.h"
#include "support/stored.h"
#include "ui/entry_company.h"

#include <QLineEdit>
#include <QScrollBar>
#include <gtest/gtest.h>

namespace {

using namespace base;
using support::click_cell, support::press, support::type;

constexpr int clock_in = 2, clock_out = 3, first_category = 8;

struct EntryPage : testing::Test, EntryCompany {
    ui::Whole<ui::ent_rovena_page> page{session};
    const entry::ent_rovena& form = page.form();
    const ui::ent_rovena_controls& controls = page.controls();

    EntryPage() { support::bring_up(page, {1366, 716}); }
    void choose_employee(int row = 1) { click_cell(*controls.hyou_syain, row, 1); }
    void click_sheet(int row, int col) { click_cell(*controls.hyou, row, col); }
    const QString& cell(int row, int col) const { return form.sheet.hyou(row, col); }
    QString boxes() const { return controls.ym[0]->currentText() + u'/' + controls.ym[1]->currentText(); }
    /// Clicks into a box of the month and types over what stands there.
    void type_month(int element, const QString& text) {
        controls.hyou_syain->setFocus();
        QTest::mouseClick(controls.ym[element]->lineEdit(), Qt::LeftButton);
        type(text);
    }
    bool whole_in_view(const ui::GridView* grid, int row, int col) const {
        return grid->viewport()->rect().contains(grid->cell_rect({row, col})) && page.rect().contains(grid->geometry());
    }
};

TEST_F(EntryPage, TheWholeMonthIsInViewOnALowScreen) {
    choose_employee();
    // Windows of 1366 x 768 and 1280 x 720 less the top band of the frame.
    for (const QSize size : {QSize(1366, 708), QSize(1280, 660)}) {
        support::bring_up(page, size);
        for (const int row : {0, 31, 32})
            EXPECT_TRUE(whole_in_view(controls.hyou, row, first_category + 2));
        EXPECT_FALSE(controls.hyou->verticalScrollBar()->isVisible());
        EXPECT_TRUE(whole_in_view(controls.hyou_day, 2, 7));
        EXPECT_TRUE(page.rect().contains(controls.left->geometry()));
    }
}

TEST_F(EntryPage, WithMoreCategoriesThanFitTheMonthIsStillInViewFromTopToBottom) {
    rovdata().exec("with recursive n(i) as (select 4 union all select i + 1 from n where i < 10)"
                   " insert into kintype select 1, '普通社員', i, 0, 500, 505, i, 0, 0, 0, 0, 0, 0, 0 from n;"
                   "insert into kinsyu select 連番, '手当' from kintype where 連番 > 3");
    page.resize(1280, 660);
    choose_employee();
    QCoreApplication::processEvents();
    EXPECT_TRUE(controls.hyou->horizontalScrollBar()->isVisible());
    EXPECT_TRUE(whole_in_view(controls.hyou, 32, first_category));
    EXPECT_FALSE(controls.hyou->verticalScrollBar()->isVisible());
    EXPECT_TRUE(whole_in_view(controls.hyou_day, 2, 0));
}

TEST_F(EntryPage, OnALargeScreenTheSheetsGrow) {
    choose_employee();
    const int row = controls.hyou->cell_rect({1, 2}).height();
    page.resize(2400, 1300);
    EXPECT_GT(controls.hyou->cell_rect({1, 2}).height(), row);
    EXPECT_GE(controls.hyou->geometry().right(), page.width() - 12) << "the remarks take the width that is left";
    EXPECT_GT(controls.hyou->cell_rect({1, 6}).width(), 2 * controls.hyou->cell_rect({1, 5}).width());
    page.resize(700, 400);
    EXPECT_EQ(controls.hyou->cell_rect({1, 2}).height(), controls.hyou->own_row_height());
    EXPECT_EQ(form.sheet.hyou.ColWidth(6), form.sheet.hyou.ColWidth(5));
}

TEST_F(EntryPage, TheBoxFollowsItsCellThroughAScroll) {
    choose_employee();
    support::bring_up(page, {800, 400});
    click_sheet(5, clock_in);
    type(u"830"_s);
    const auto* box = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    controls.hyou->verticalScrollBar()->setValue(3);
    EXPECT_EQ(box->geometry(), controls.hyou->cell_rect({5, clock_in}));
    controls.hyou->verticalScrollBar()->setValue(12);
    EXPECT_FALSE(controls.hyou->viewport()->rect().intersects(box->geometry()));
    type(u"Enter"_s);
    EXPECT_EQ(cell(5, clock_in), u"8:30"_s) << "what was typed is kept out of sight";
    EXPECT_EQ(box->geometry(), controls.hyou->cell_rect({5, clock_out})) << "the next cell comes into view";
}

TEST_F(EntryPage, HowTheLoadStandsIsPaintedWhileItGoesOn) {
    const support::PaintedWords painted;
    choose_employee();
    EXPECT_TRUE(painted.words.contains(u"データー抽出中"_s));
    EXPECT_EQ(controls.syalab->text() + controls.lab2->text(), u"3:山田 太郎普通社員"_s);
}

TEST_F(EntryPage, TheSelectorsTakeDigitsOnlyAndEnterLoadsWhatIsTypedAndMovesOn) {
    EXPECT_TRUE(controls.ym[0]->hasFocus()) << "the screen opens with the year";
    type_month(0, u"20a05 Enter"_s);
    EXPECT_EQ(form.sheet.month.first(), QDate(2005, 10, 1)) << "with nobody chosen, too";
    EXPECT_TRUE(controls.ym[1]->hasFocus());
    support::turn_wheel(*controls.ym[1]);
    EXPECT_EQ(boxes(), u"2005/10"_s) << "the wheel chooses no month";
    press(Qt::Key_Up);
    EXPECT_EQ(boxes(), u"2005/9"_s);
    choose_employee();
    type_month(1, u"13 Enter"_s);
    EXPECT_EQ(boxes(), u"2005/9"_s);
    EXPECT_TRUE(controls.toubotan->hasFocus());
    type_month(0, u"1999 Enter 3 Enter"_s);
    EXPECT_EQ(form.sheet.month.first(), QDate(1999, 3, 1));
    EXPECT_EQ(boxes(), u"1999/3"_s);
}

TEST_F(EntryPage, AMonthThatIsOnlyTypedIsNeverLoadedAndTheDayTypedBeforeIsPosted) {
    const QString exchange = store::exchange_path(settings, 1);
    QDir().mkpath(QFileInfo(exchange).path());
    store::Database::create(exchange, store::Kind::Exchange);
    choose_employee();
    click_sheet(1, clock_in);
    type(u"830"_s);
    QWidget other;
    const std::function<void()> ways[] = {
        [] { press(Qt::Key_Tab); },
        [&] {
            support::bring_up(other, {50, 50});
        },
        [&] { click_sheet(2, clock_in); },
        [&] { QTest::mouseClick(controls.botan[1], Qt::LeftButton); },
    };
    for (const auto& leave : ways)
        for (const auto& [element, text] : {std::pair{0, u"2005"_s}, {1, u"11"_s}, {1, u"13"_s}, {0, u"1999"_s}}) {
            type_month(element, text);
            leave();
            support::bring_up(page, page.size());
            EXPECT_EQ(boxes(), u"2004/10"_s) << &leave - ways << ' ' << text.toStdString();
            EXPECT_EQ(cell(1, clock_in), u"8:30"_s);
        }
    EXPECT_EQ(
        support::rows_of(exchange, store::Kind::Exchange, R"(select "10", "11" from jyusin where "2"='51')").value(0),
        u"20041001|830"_s);
    type_month(1, u"9"_s);
    QApplication::setActiveWindow(nullptr);
    support::bring_up(page, page.size());
    type(u"11 Enter"_s);
    EXPECT_EQ(boxes(), u"2004/11"_s) << "the month that was put back is typed over";
}

TEST_F(EntryPage, WhatIsTypedWhileTheListOfKindsIsOpenOrScrolledAwayReachesNoCount) {
    choose_employee();
    support::bring_up(page, {900, 400});
    click_sheet(5, 7);
    const base::Sheet counts = form.sheet.hyou_day;
    const auto type_on = [&] {
        for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Left, Qt::Key_PageDown, Qt::Key_Down, Qt::Key_Up})
            press(key);
        type(u"25"_s);
        EXPECT_EQ((Cell{form.sheet.hyou.Row(), form.sheet.hyou.Col()}), (Cell{5, 7}));
        for (int column = 0; column < counts.Cols(); ++column)
            EXPECT_EQ(form.sheet.hyou_day(2, column), counts(2, column)) << column;
    };
    controls.hyou->verticalScrollBar()->setValue(3);
    type_on();
    click_sheet(5, 7);
    page.resize(300, 200);
    type_on();
}

TEST_F(EntryPage, TabNeverLeadsToABoxThatIsOutOfSight) {
    choose_employee();
    for (int i = 0; i < 20; ++i) {
        press(Qt::Key_Tab);
        EXPECT_FALSE(controls.hyou->viewport()->isAncestorOf(QApplication::focusWidget()));
        EXPECT_NE(QApplication::focusWidget(), controls.toubotan);
    }
}

TEST_F(EntryPage, ADayIsTypedWithTheKeyboardAlone) {
    choose_employee();
    controls.hyou_syain->setFocus();
    press(Qt::Key_Tab);
    ASSERT_TRUE(controls.hyou->hasFocus()) << "not the counts, which take digits too";
    type(u"8 30 Enter 1715"_s);
    EXPECT_EQ(cell(1, clock_in), u"8:30"_s);
    press(Qt::Key_Tab);
    EXPECT_EQ(cell(1, clock_out), u"17:15"_s);
    EXPECT_TRUE(controls.hyou_day->hasFocus());
}

} // namespace
