// The pages of the masters over real widgets, where focus and keys are the point.

#include "support/fake_host.h"
#include "support/person.h"
#include "ui/entry_company.h"
#include "ui/main_window.h"
#include "ui/mst_kinjikan_page.h"
#include "ui/mst_kinsyu_page.h"
#include "ui/mst_kintype_page.h"
#include "ui/mst_kyuka_page.h"
#include "ui/mst_syain_page.h"

#include <QAbstractItemView>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using support::press;
using support::type;

struct MasterPages : testing::Test {
    EntryCompany company;
    support::FakeHost host;
    store::SettingTables tables{company.settings};
    frame::TurnLink link{company.settings, host};
    frame::Session session{company.settings, host, tables, link};

    MasterPages() {
        store::Database::open(store::comsys_path(company.settings), store::Kind::Comsys)
            .exec("insert into bangou (番号名称, 番号) values"
                  " ('勤務種類', 3), ('勤務時間', 1), ('社員番号', 3), ('休暇種類', 3)");
        store::Database::open(store::allsystem_path(company.settings), store::Kind::Allsystem)
            .exec("insert into allsystem (個別dataファイル) values ('rovdata.mdb')");
    }
    template <typename Page>
    std::unique_ptr<Page> open(QSize size = {1366, 708}) {
        auto page = std::make_unique<Page>(session);
        page->resize(size);
        page->show();
        QApplication::setActiveWindow(page.get());
        QCoreApplication::processEvents();
        return page;
    }
    static ui::GridView& grid(const QWidget& page, const char* name) {
        return *page.findChild<ui::GridView*>(QLatin1String(name));
    }
    static void click(const ui::MasterPage& page, int botan) { QTest::mouseClick(page.botan(botan), Qt::LeftButton); }

    static void help(const ui::MasterPage& page) {
        for (auto* button : page.findChildren<ui::PictureButton*>())
            if (button->accessibleName() == u"ヘルプ"_s)
                QTest::mouseClick(button, Qt::LeftButton);
    }

    /// The rows of a query, each as its columns joined by "|".
    QStringList rows(std::string_view sql) {
        auto database = store::Database::open(store::rovdata_path(company.settings), store::Kind::Rovdata);
        auto query = database.prepare(sql);
        QStringList found;
        while (query.step()) {
            QStringList cells;
            for (int i = 0; i < query.row().columns(); ++i)
                cells << query.row().text(i);
            found << cells.join(u'|');
        }
        return found;
    }
    QStringList categories() { return rows("select システム番号, 種類名 from kinsyu order by システム番号"); }
};

using MstKinsyuPage = MasterPages;

TEST_F(MstKinsyuPage, ANameTypedBelowTheOthersIsSavedWhenEnterOrAButtonLeavesIt) {
    const auto page = open<ui::mst_kinsyu_page>();
    support::click_cell(grid(*page, "hyou"), 4, 1);
    type(u"Night Enter"_s);
    EXPECT_EQ(categories().last(), u"4|Night"_s);
    type(u"Day"_s);
    EXPECT_EQ(categories().filter(u"Day"_s).size(), 0);
    click(*page, 1);
    EXPECT_EQ(categories().filter(u"Day"_s).size(), 1);
}

TEST_F(MstKinsyuPage, WhatIsTypedAtOnceOnOpeningLandsUnseenInTheFirstRow) {
    const auto page = open<ui::mst_kinsyu_page>();
    type(u"ab"_s);
    EXPECT_EQ(page->form().hyou(1, masters::mst_kinsyu::name_col), u"ab"_s);
    EXPECT_FALSE(grid(*page, "hyou").viewport()->rect().intersects(QApplication::focusWidget()->geometry()));
    type(u"Enter"_s);
    EXPECT_EQ(categories().first(), u"1|ab"_s);
}

TEST_F(MstKinsyuPage, TheBoxFollowsItsCellThroughAScroll) {
    store::Database::open(store::rovdata_path(company.settings), store::Kind::Rovdata)
        .exec("with recursive n(i) as (select 4 union all select i + 1 from n where i < 80)"
              " insert into kinsyu select i, 'category' from n");
    const auto page = open<ui::mst_kinsyu_page>();
    ui::GridView& hyou = grid(*page, "hyou");
    support::click_cell(hyou, 4, 1);
    type(u"Night"_s);
    const QWidget* box = QApplication::focusWidget();
    hyou.verticalScrollBar()->setValue(2);
    EXPECT_EQ(box->geometry(), hyou.cell_rect({4, 1}));
    hyou.verticalScrollBar()->setValue(hyou.verticalScrollBar()->maximum());
    EXPECT_FALSE(hyou.viewport()->rect().intersects(box->geometry()));
    hyou.verticalScrollBar()->setValue(0);
    EXPECT_EQ(box->geometry(), hyou.cell_rect({4, 1}));
    EXPECT_EQ(page->form().hyou(4, 1), u"Night"_s);
}

TEST_F(MstKinsyuPage, OneConversionOfTheInputMethodIsOneChange) {
    const auto page = open<ui::mst_kinsyu_page>();
    support::click_cell(grid(*page, "hyou"), 4, 1);
    QWidget* box = QApplication::focusWidget();
    EXPECT_TRUE(box->testAttribute(Qt::WA_InputMethodEnabled));
    QInputMethodEvent composing(u"やきん"_s, {});
    QApplication::sendEvent(box, &composing);
    EXPECT_EQ(page->form().hyou(4, masters::mst_kinsyu::name_col), QString()) << "nothing is converted yet";
    QInputMethodEvent converted;
    converted.setCommitString(u"夜勤"_s);
    QApplication::sendEvent(box, &converted);
    EXPECT_EQ(page->form().hyou(4, masters::mst_kinsyu::name_col), u"夜勤"_s);
    EXPECT_EQ(page->form().hyou(4, masters::mst_kinsyu::mark_col), QString()) << "the first change sets no mark";
    type(u"手当 Enter"_s);
    EXPECT_EQ(categories().filter(u"夜勤手当"_s).size(), 1);
}

TEST_F(MstKinsyuPage, AWindowThatComesBackGoesOnInTheCellInHand) {
    const auto page = open<ui::mst_kinsyu_page>();
    support::click_cell(grid(*page, "hyou"), 4, 1);
    type(u"Ni"_s);
    page->showMinimized();
    QCoreApplication::processEvents();
    page->showNormal();
    QCoreApplication::processEvents();
    EXPECT_EQ(page->form().atai.cell, (base::Cell{4, 1}));
    EXPECT_EQ(page->form().atai.text, u"Ni"_s);
    EXPECT_TRUE(page->form().atai.visible);
}

using MstKinjikanPage = MasterPages;

TEST_F(MstKinjikanPage, ABandTypedByKeysAndItsCategoryChosenAreRegistered) {
    const auto page = open<ui::mst_kinjikan_page>();
    type(u"夜勤"_s);
    ui::GridView& hyou = grid(*page, "hyou");
    support::click_cell(hyou, 1, 1);
    EXPECT_FALSE(QApplication::focusWidget()->testAttribute(Qt::WA_InputMethodEnabled));
    type(u"22x00 Enter 600"_s);
    EXPECT_EQ(page->form().picture().segments.size(), 2) << "the picture follows what is typed";
    support::click_cell(hyou, 1, 3);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    click(*page, 1);
    EXPECT_EQ(
        rows("select 勤務タイプ名, 曜日, 連番, 開始時間, 終了時間, 時間種類 from kintype where 勤務タイプ名='夜勤'"),
        QStringList{u"夜勤|1|1|2200|600|2"_s});
    EXPECT_EQ(host.shown.back().text, u"夜勤を登録します"_s);
}

TEST_F(MstKinjikanPage, BackspaceInTheListTakesTheCategoryBackAndAnotherCellPutsTheListAway) {
    const auto page = open<ui::mst_kinjikan_page>();
    support::click_cell(grid(*page, "hyoulist"), 1, 0);
    ui::GridView& hyou = grid(*page, "hyou");
    support::click_cell(hyou, 2, 3);
    auto* list = qobject_cast<QComboBox*>(QApplication::focusWidget());
    ASSERT_TRUE(list);
    EXPECT_EQ(list->currentText(), u"普通残業"_s);
    press(Qt::Key_Backspace);
    EXPECT_EQ(page->form().hyou(2, 3), QString());
    support::click_cell(hyou, 3, 1);
    EXPECT_FALSE(list->isEnabled());
    EXPECT_TRUE(qobject_cast<QLineEdit*>(QApplication::focusWidget()));
}

TEST_F(MstKinjikanPage, AllBandsAreInViewOnALowScreen) {
    for (const QSize size : {QSize(1366, 708), QSize(1280, 660)}) {
        const auto page = open<ui::mst_kinjikan_page>(size);
        ui::GridView& hyou = grid(*page, "hyou");
        EXPECT_TRUE(hyou.viewport()->rect().contains(hyou.cell_rect({10, 12})));
        EXPECT_TRUE(page->rect().contains(hyou.geometry()));
        EXPECT_EQ(page->size(), size);
    }
}

using MstKintypePage = MasterPages;

TEST_F(MstKintypePage, ChoosingInTheListAssignsTheTypeAtOnce) {
    const auto page = open<ui::mst_kintype_page>();
    support::click_cell(grid(*page, "hyou"), 2, 2); // the employee numbered 2
    EXPECT_EQ(rows("select 勤務タイプ from syainkinmu where システム社員番号=3"), QStringList());
    press(Qt::Key_Down);
    EXPECT_EQ(rows("select 勤務タイプ from syainkinmu where システム社員番号=3"), QStringList{u"1"_s});
    EXPECT_EQ(page->form().hyou(2, masters::mst_kintype::type_name_col), u"普通社員"_s);
}

TEST_F(MstKintypePage, AnItemIsChosenInTheListThatDropsDown) {
    const auto page = open<ui::mst_kintype_page>();
    press(Qt::Key_Down);
    press(Qt::Key_Space); // the keyboard stands on the types at once
    auto* list = qobject_cast<QComboBox*>(QApplication::focusWidget());
    ASSERT_TRUE(list);
    QTest::mouseClick(list, Qt::LeftButton);
    ASSERT_TRUE(list->view()->isVisible()) << "opening it doesn't count as leaving the cell";
    QTest::keyClick(list->view(), Qt::Key_Home);
    QTest::keyClick(list->view(), Qt::Key_Return);
    EXPECT_EQ(rows("select 勤務タイプ from syainkinmu where システム社員番号=3"), QStringList{u"1"_s});
}

using MstSyainPage = MasterPages;

TEST_F(MstSyainPage, AnEmployeeIsEnteredByEnterAlone) {
    const auto page = open<ui::mst_syain_page>();
    type(u"77 Enter 鈴木一 Enter スズキハジメ Enter"_s);
    EXPECT_TRUE(page->toubotan()->hasFocus());
    EXPECT_TRUE(page->botan(1)->isDown()) << "the button shows that Enter registers now";
    type(u"Enter"_s);
    EXPECT_EQ(rows("select 社員番号, 社員名, フリガナ from syain where 社員番号=77"),
        QStringList{u"77|鈴木一|スズキハジメ"_s});
    EXPECT_EQ(page->atai(2)->text(), QString());
}

TEST_F(MstSyainPage, AClickOnARowShowsTheEmployeeWithTheNumberSelected) {
    const auto page = open<ui::mst_syain_page>();
    support::click_cell(*page->hyou(), 1, 1);
    EXPECT_EQ(page->atai(2)->text(), u"山田 太郎"_s);
    EXPECT_TRUE(page->atai(1)->hasFocus());
    EXPECT_EQ(page->atai(1)->selectedText(), u"3"_s);
    EXPECT_EQ(page->atai(1)->palette().color(QPalette::Base), QColor(240, 240, 255));
    EXPECT_FALSE(page->atai(1)->testAttribute(Qt::WA_InputMethodEnabled));
    EXPECT_TRUE(page->atai(3)->testAttribute(Qt::WA_InputMethodEnabled));
    press(Qt::Key_Return);
    EXPECT_EQ(page->atai(1)->palette().color(QPalette::Base), QColor(Qt::white));
    press(Qt::Key_Up);
    EXPECT_TRUE(page->atai(1)->hasFocus());
}

TEST_F(MstSyainPage, AReadingIsComposedInItsBoxAndCountsWhenItIsConverted) {
    const auto page = open<ui::mst_syain_page>();
    page->atai(3)->setFocus();
    QInputMethodEvent composing(u"やまだ"_s, {});
    QApplication::sendEvent(page->atai(3), &composing);
    EXPECT_EQ(page->form().atai[3].text, QString());
    type(u"ヤマダ"_s);
    EXPECT_EQ(page->form().atai[3].text, u"ヤマダ"_s);
    EXPECT_EQ(page->atai(3)->text(), u"ヤマダ"_s);
}

using MstKyukaPage = MasterPages;

TEST_F(MstKyukaPage, EnterInTheNameLeadsToTheButtonAndEnterThereSaves) {
    const auto page = open<ui::mst_kyuka_page>();
    type(u"特休 Enter"_s);
    EXPECT_TRUE(page->toubotan()->hasFocus());
    type(u"Enter"_s);
    EXPECT_EQ(rows("select 休出 from kyutype where 休暇名='特休'"), QStringList{u"0"_s});
    EXPECT_TRUE(page->atai(1)->hasFocus());
}

TEST_F(MasterPages, EachMasterOpensTellsItsHelpAndLeadsBackToTheMenu) {
    ui::MainWindow window(session);
    window.resize(1366, 768);
    window.show();
    for (const frame::Page page : {frame::Page::mst_syain, frame::Page::mst_kinsyu, frame::Page::mst_kinjikan,
             frame::Page::mst_kintype, frame::Page::mst_kyuka}) {
        window.pages().show(page);
        auto* master = qobject_cast<ui::MasterPage*>(window.pages().page(page));
        ASSERT_TRUE(master);
        help(*master);
        click(*master, 0);
        EXPECT_FALSE(window.pages().is_open(page));
        EXPECT_EQ(window.pages().currentWidget(), window.pages().page(frame::Page::mst_00));
    }
    QStringList helps;
    for (const QString& address : host.opened)
        helps << address.section(u'/', -1);
    EXPECT_EQ(helps,
        QStringList({u"001-3-01.htm"_s, u"001-3-02.htm"_s, u"001-3-03.htm"_s, u"001-3-04.htm"_s, u"001-3-05.htm"_s}));
}

TEST_F(MasterPages, APageGoesWithACellInEdit) {
    {
        const auto page = open<ui::mst_kinjikan_page>();
        support::click_cell(grid(*page, "hyou"), 1, 1);
        type(u"830"_s);
    }
    {
        const auto page = open<ui::mst_syain_page>();
        type(u"5"_s);
    }
    EXPECT_TRUE(host.shown.empty());
}

} // namespace
