#include "ui/entry/ent_rovena_page.h"

#include "support/person.h"
#include "ui/entry_company.h"

#include <QLineEdit>
#include <QScrollBar>
#include <gtest/gtest.h>

namespace {

using namespace base;
using support::click_cell, support::press, support::type;

constexpr int clock_in = 2, first_category = 8;

struct EntryPage : testing::Test, EntryCompany {
    ui::Whole<ui::ent_rovena_page> page{session};
    const entry::ent_rovena& form = page.form();
    const ui::ent_rovena_controls& controls = page.controls();

    EntryPage() {
        support::bring_up(page, {1366, 716});
        choose_employee();
    }
    void choose_employee() { click_cell(*controls.hyou_syain, 1, 1); }
    void click_sheet(int row, int col) { click_cell(*controls.hyou, row, col); }
    bool whole_in_view(const ui::GridView* grid, int row, int col) const {
        return grid->viewport()->rect().contains(grid->cell_rect({row, col})) && page.rect().contains(grid->geometry());
    }
};

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
    support::bring_up(page, {800, 400});
    click_sheet(5, clock_in);
    type(u"830"_s);
    const auto* box = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    controls.hyou->verticalScrollBar()->setValue(3);
    EXPECT_EQ(box->geometry(), controls.hyou->cell_rect({5, clock_in}));
    controls.hyou->verticalScrollBar()->setValue(12);
    EXPECT_FALSE(controls.hyou->viewport()->rect().intersects(box->geometry()));
    type(u"Enter"_s);
    EXPECT_EQ(form.sheet.hyou(5, clock_in), u"8:30"_s) << "what was typed is kept out of sight";
    EXPECT_EQ(box->geometry(), controls.hyou->cell_rect({5, clock_in + 1})) << "the next cell comes into view";
}

TEST_F(EntryPage, WhoSavesByKeyTypesOnWhereHeWas) {
    click_sheet(5, clock_in);
    press(Qt::Key_F3);
    ASSERT_TRUE(form.editors.notice) << "there is no day above to take times from";
    press(Qt::Key_F9);
    EXPECT_FALSE(form.editors.notice) << "the line tells of the save";
    type(u"8"_s);
    type(u"30"_s);
    type(u"Enter"_s);
    EXPECT_EQ(form.sheet.hyou(5, clock_in), u"8:30"_s);
}

TEST_F(EntryPage, TheSmallestWindowShowsTheSwitchesWhole) {
    page.resize(1020, 600);
    for (const QWidget* control : {static_cast<QWidget*>(controls.goes_on), static_cast<QWidget*>(controls.torikomi)})
        EXPECT_GE(control->width(), control->sizeHint().width());
}

TEST_F(EntryPage, WhatIsTypedWhileTheListOfKindsIsOpenOrScrolledAwayReachesNoCount) {
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

TEST_F(EntryPage, TabNeverLeadsToABoxThatIsOutOfSightAndTheWheelChoosesNoMonth) {
    for (int i = 0; i < 20; ++i) {
        press(Qt::Key_Tab);
        EXPECT_FALSE(controls.hyou->viewport()->isAncestorOf(QApplication::focusWidget()));
        EXPECT_NE(QApplication::focusWidget(), controls.toubotan);
    }
    support::turn_wheel(*controls.ym[1]);
    EXPECT_EQ(controls.ym[1]->currentText(), u"10"_s);
}

TEST_F(EntryPage, ACountThatIsTypedShowsAtOnceAsNotSaved) {
    click_cell(*controls.hyou_day, 2, 3);
    type(u"7"_s);
    EXPECT_EQ(controls.standing->text(), u"未登録 日数"_s);
    EXPECT_TRUE(controls.give_up->isVisible());
}

} // namespace
