#include "ui/ent_rovena_page.h"

#include "support/fake_host.h"
#include "support/person.h"
#include "ui/entry_company.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using support::type;

constexpr int clock_in = 2, clock_out = 3, break_time = 4, work_time = 5, remark = 6, kind = 7, first_category = 8;

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
    EXPECT_EQ(controls.syalab->text(), u"3:山田 太郎"_s);
    EXPECT_EQ(controls.lab2->text(), u"普通社員"_s);
    click_sheet(1, clock_in);
    type(u"830 Enter 1915 Enter"_s);
    EXPECT_EQ(cell(1, clock_in), u"8:30"_s);
    EXPECT_EQ(cell(1, clock_out), u"19:15"_s);
    EXPECT_EQ(cell(1, break_time), u"1:00"_s);
    EXPECT_EQ(cell(1, work_time), u"9:45"_s);
    EXPECT_EQ(cell(1, first_category + 1), u"1:45"_s);
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

TEST_F(EntryPage, WithMoreCategoriesThanFitTheMonthIsStillInViewFromTopToBottom) {
    auto database = store::Database::open(store::rovdata_path(company.settings), store::Kind::Rovdata);
    auto category = database.prepare("insert into kinsyu values (?, '手当')");
    auto band = database.prepare("insert into kintype values (1, '普通社員', ?, 0, 500, 505, ?, 0, 0, 0, 0, 0, 0, 0)");
    for (int number = 4; number <= 10; ++number) {
        category.bind(number).run();
        band.bind(number, number).run();
    }
    page.resize(1280, 660);
    choose_employee(1);
    QCoreApplication::processEvents();
    EXPECT_TRUE(controls.hyou->horizontalScrollBar()->isVisible());
    EXPECT_TRUE(whole_in_view(controls.hyou, 32, first_category));
    EXPECT_FALSE(controls.hyou->verticalScrollBar()->isVisible());
    EXPECT_TRUE(whole_in_view(controls.hyou_day, 2, 0));
}

TEST_F(EntryPage, OnALargeScreenTheSheetsGrow) {
    choose_employee(1);
    const int row = controls.hyou->cell_rect({1, 2}).height();
    page.resize(2400, 1300);
    EXPECT_GT(controls.hyou->cell_rect({1, 2}).height(), row);
    page.resize(700, 400);
    EXPECT_EQ(controls.hyou->cell_rect({1, 2}).height(), controls.hyou->own_row_height());
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

TEST_F(EntryPage, HowTheLoadStandsIsPaintedWhileItGoesOn) {
    struct : QObject {
        QStringList texts;
        bool eventFilter(QObject* label, QEvent* event) override {
            if (event->type() == QEvent::Paint)
                texts << qobject_cast<QLabel*>(label)->text();
            return false;
        }
    } painted;
    controls.msglab->installEventFilter(&painted);
    choose_employee(1);
    EXPECT_TRUE(painted.texts.contains(u"データー抽出中"_s));
    controls.msglab->removeEventFilter(&painted);
}

TEST_F(EntryPage, AKindOfDayIsChosenFromTheListOverItsCell) {
    choose_employee(1);
    click_sheet(4, kind);
    auto* list = qobject_cast<QComboBox*>(QApplication::focusWidget());
    ASSERT_TRUE(list);
    EXPECT_EQ(list->itemText(2), u"有休"_s) << "the numbers behind the name aren't shown";
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(cell(4, kind), u"有休"_s);
    click_sheet(4, clock_in);
    EXPECT_FALSE(list->isEnabled());
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
    QTest::keyClick(controls.hyou_day, Qt::Key_Delete);
    EXPECT_EQ(form.sheet.hyou_day(2, 1), QString());
}

TEST_F(EntryPage, WithoutAnEmployeeTheSheetOnlySaysSo) {
    click_sheet(1, clock_in);
    ASSERT_EQ(host.shown.size(), 1u);
    EXPECT_EQ(host.shown[0].text, u"社員を選択してから入力してください"_s);
    EXPECT_EQ(host.shown[0].title, u"社員未選択"_s);
    EXPECT_FALSE(controls.hyou_day->isVisible());
}

TEST_F(EntryPage, AnotherMonthIsLoadedWhenItIsChosen) {
    choose_employee(1);
    controls.ym[1]->setFocus();
    QTest::keyClick(controls.ym[1], Qt::Key_Up);
    EXPECT_EQ(form.ym[1].text, u"9"_s);
    EXPECT_EQ(cell(31, 0), QString()) << "September has no 31st";
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
        EXPECT_FALSE(controls.hyou->viewport()->isAncestorOf(QApplication::focusWidget()));
        EXPECT_NE(QApplication::focusWidget(), controls.toubotan);
    }
}

TEST_F(EntryPage, ADayIsTypedWithTheKeyboardAlone) {
    choose_employee(1);
    controls.hyou_syain->setFocus();
    const auto tab = [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab); };
    tab();
    ASSERT_TRUE(controls.hyou->hasFocus()) << "not the counts, which take digits too";
    type(u"8 30 Enter 1715"_s);
    EXPECT_EQ(cell(1, clock_in), u"8:30"_s);
    tab();
    EXPECT_EQ(cell(1, clock_out), u"17:15"_s);
    EXPECT_TRUE(controls.hyou_day->hasFocus());
}

TEST_F(EntryPage, TheWheelOverASelectorChoosesNoOtherMonth) {
    QWheelEvent wheel(
        {5, 5}, controls.ym[1]->mapToGlobal(QPointF(5, 5)), {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(controls.ym[1], &wheel);
    EXPECT_EQ(controls.ym[1]->currentText(), u"10"_s);
}

TEST_F(EntryPage, TheOrderOfTheListIsKeptForTheNextTime) {
    QTest::mouseClick(controls.sortlist->button(1), Qt::LeftButton);
    EXPECT_EQ(form.hyou_syain(1, 1), u"佐藤 花子"_s);
    QTest::mouseClick(controls.kyuflg->button(1), Qt::LeftButton);
    const ui::ent_rovena_page next(session);
    EXPECT_TRUE(next.controls().sortlist->button(1)->isChecked());
    EXPECT_TRUE(next.controls().kyuflg->button(1)->isChecked());
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

TEST_F(EntryPage, ThePageGoesWithACellInEdit) {
    auto* other = new ui::ent_rovena_page(session);
    other->show();
    QApplication::setActiveWindow(other);
    support::click_cell(*other->controls().hyou_syain, 1, 1);
    support::click_cell(*other->controls().hyou, 1, clock_in);
    type(u"830"_s);
    delete other;
    EXPECT_TRUE(host.shown.empty());
}

} // namespace
