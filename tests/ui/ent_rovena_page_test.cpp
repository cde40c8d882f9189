#include "ui/ent_rovena_page.h"

#include "support/fake_host.h"
#include "support/person.h"
#include "ui/entry_company.h"

#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using support::type;

constexpr int clock_in = 2, clock_out = 3, work_time = 5, first_category = 8;

struct EntryPage : testing::Test {
    EntryCompany company;
    support::FakeHost host;
    store::SettingTables tables{company.settings};
    frame::TurnLink link{company.settings, host};
    frame::Session session{company.settings, host, tables, link};
    ui::ent_rovena_page page{session};
    const entry::ent_rovena& form = page.form();
    const ui::ent_rovena_controls& controls = page.controls();

    EntryPage() {
        page.resize(1366, 716);
        page.show();
        page.activateWindow();
        QApplication::setActiveWindow(&page);
        QCoreApplication::processEvents();
    }
    void choose_employee(int row) { support::click_cell(*controls.hyou_syain, row, 1); }
    void click_sheet(int row, int col) { support::click_cell(*controls.hyou, row, col); }
    const QString& cell(int row, int col) const { return form.sheet.hyou(row, col); }
    bool whole_in_view(const ui::GridView* grid, int row, int col) const {
        return grid->viewport()->rect().contains(grid->cell_rect({row, col})) && page.rect().contains(grid->geometry());
    }
};

TEST_F(EntryPage, AnEmployeeAndTwoClockTimesGiveTheHoursOfTheDay) {
    choose_employee(1);
    click_sheet(1, clock_in);
    type(u"830 Enter 1915 Enter"_s);
    EXPECT_EQ(cell(1, clock_in), u"8:30"_s);
    EXPECT_EQ(cell(1, work_time), u"9:45"_s);
    EXPECT_EQ(cell(32, work_time), u"9:45"_s);
}

TEST_F(EntryPage, TheWholeMonthIsInViewOnALowScreen) {
    choose_employee(1);
    // Windows of 1366 x 768 and 1280 x 720 less the top band of the frame.
    for (const QSize size : {QSize(1366, 708), QSize(1280, 660)}) {
        page.resize(size);
        QCoreApplication::processEvents();
        EXPECT_TRUE(whole_in_view(controls.hyou, 0, 0));
        EXPECT_TRUE(whole_in_view(controls.hyou, 31, first_category + 2));
        EXPECT_TRUE(whole_in_view(controls.hyou, 32, first_category + 2));
        EXPECT_FALSE(controls.hyou->verticalScrollBar()->isVisible());
        EXPECT_TRUE(whole_in_view(controls.hyou_day, 2, 7));
        EXPECT_TRUE(page.rect().contains(controls.left->geometry()));
    }
}

TEST_F(EntryPage, TheBoxFollowsItsCellThroughAScroll) {
    choose_employee(1);
    page.resize(800, 400);
    QCoreApplication::processEvents();
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

TEST_F(EntryPage, TheCountStripTakesTheKeysItself) {
    choose_employee(1);
    support::click_cell(*controls.hyou_day, 2, 0);
    type(u"1250"_s);
    EXPECT_EQ(form.sheet.hyou_day(2, 0), u"1,250"_s);
    QTest::keyClick(controls.hyou_day, Qt::Key_Backspace);
    EXPECT_EQ(form.sheet.hyou_day(2, 0), u"125"_s);
    QTest::keyClick(controls.hyou_day, Qt::Key_Right);
    type(u"7"_s);
    EXPECT_EQ(form.sheet.hyou_day(2, 1), u"7"_s);
}

TEST_F(EntryPage, TheSelectorsTakeDigitsOnlyAndEnterMovesOn) {
    EXPECT_TRUE(controls.ym[0]->hasFocus()) << "the screen opens with the year";
    controls.ym[0]->lineEdit()->selectAll();
    type(u"20a05"_s);
    EXPECT_EQ(form.ym[0].text, u"2005"_s);
    type(u"Enter"_s);
    EXPECT_TRUE(controls.ym[1]->hasFocus());
    type(u"Enter"_s);
    EXPECT_TRUE(controls.toubotan->hasFocus());
}

TEST_F(EntryPage, TabNeverLeadsToABoxThatIsOutOfSight) {
    choose_employee(1);
    for (int i = 0; i < 20; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_FALSE(controls.hyou->isAncestorOf(QApplication::focusWidget()));
        EXPECT_NE(QApplication::focusWidget(), controls.toubotan);
    }
}

TEST_F(EntryPage, TheOrderOfTheListIsKeptForTheNextTime) {
    QTest::mouseClick(controls.sortlist->button(1), Qt::LeftButton);
    EXPECT_EQ(form.hyou_syain(1, 1), u"佐藤 花子"_s);
    const ui::ent_rovena_page next(session);
    EXPECT_TRUE(next.controls().sortlist->button(1)->isChecked());
}

TEST_F(EntryPage, WhatStandsInTheBoxIsCommittedBeforeAButtonActs) {
    QSignalSpy closed(&page, &ui::ent_rovena_page::close_wanted);
    choose_employee(1);
    click_sheet(1, clock_in);
    type(u"830"_s);
    QTest::mouseClick(controls.botan[0], Qt::LeftButton);
    EXPECT_EQ(cell(1, clock_in), u"8:30"_s);
    EXPECT_EQ(closed.count(), 1);
}

} // namespace
