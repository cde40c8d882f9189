// The pages of the masters over real widgets, where focus and keys are the point.

#include "support/person.h"
#include "support/stored.h"
#include "ui/application.h"
#include "ui/entry_company.h"
#include "ui/main_window.h"
#include "ui/masters/mst_kinjikan_page.h"
#include "ui/masters/mst_kinsyu_page.h"
#include "ui/masters/mst_syain_page.h"
#include "ui/parts/standing_line.h"

#include <QInputMethodEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

using namespace base;
using frame::Page;
using support::click_cell;
using support::press;
using support::type;

struct MasterPages : testing::Test, EntryCompany {
    MasterPages() {
        comsys().exec("insert into bangou (番号名称, 番号) values"
                      " ('勤務種類', 3), ('勤務時間', 1), ('社員番号', 3), ('休暇種類', 3)");
        store::Database::open(store::allsystem_path(settings), store::Kind::Allsystem)
            .exec("insert into allsystem (個別dataファイル) values ('rovdata.mdb')");
    }
    template <typename Master>
    std::unique_ptr<Master> open(QSize size = {1366, 708}) {
        auto page = std::make_unique<ui::Whole<Master>>(session);
        support::bring_up(*page, size);
        return page;
    }
    static ui::GridView& grid(const QWidget& page, const char* name) {
        return *page.findChild<ui::GridView*>(QLatin1String(name));
    }
    static void click(const ui::MasterPage& page, int botan) { QTest::mouseClick(page.botan(botan), Qt::LeftButton); }

    QStringList rows(std::string_view sql) {
        return support::rows_of(store::rovdata_path(settings), store::Kind::Rovdata, sql);
    }
    QStringList categories() { return rows("select システム番号, 種類名 from kinsyu order by システム番号"); }
};

/// What the input method shows before it is converted.
void compose(const QString& text) {
    QInputMethodEvent composing(text, {});
    QApplication::sendEvent(QApplication::focusWidget(), &composing);
}

using MstKinsyuPage = MasterPages;

TEST_F(MstKinsyuPage, TheBoxFollowsItsCellThroughAScroll) {
    rovdata().exec("with recursive n(i) as (select 4 union all select i + 1 from n where i < 80)"
                   " insert into kinsyu select i, 'category' from n");
    const auto page = open<ui::mst_kinsyu_page>();
    ui::GridView& hyou = grid(*page, "hyou");
    click_cell(hyou, 4, 1);
    const QWidget* box = QApplication::focusWidget();
    hyou.verticalScrollBar()->setValue(2);
    EXPECT_EQ(box->geometry(), hyou.cell_rect({4, 1}));
    hyou.verticalScrollBar()->setValue(hyou.verticalScrollBar()->maximum());
    EXPECT_FALSE(hyou.viewport()->rect().intersects(box->geometry()));
}

TEST_F(MstKinsyuPage, OneConversionOfTheInputMethodIsOneChangeAndEnterOrAButtonSavesIt) {
    const auto page = open<ui::mst_kinsyu_page>();
    click_cell(grid(*page, "hyou"), 4, 1);
    EXPECT_TRUE(QApplication::focusWidget()->testAttribute(Qt::WA_InputMethodEnabled));
    compose(u"やきん"_s);
    EXPECT_EQ(page->form().hyou(4, masters::mst_kinsyu::name_col), QString()) << "nothing is converted yet";
    type(u"夜勤"_s);
    EXPECT_EQ(page->form().hyou(4, masters::mst_kinsyu::name_col), u"夜勤"_s);
    EXPECT_EQ(page->form().hyou(4, masters::mst_kinsyu::mark_col), QString()) << "the first change sets no mark";
    type(u"手当 Enter Day"_s);
    EXPECT_EQ(categories().last(), u"4|夜勤手当"_s);
    click(*page, 1);
    EXPECT_EQ(categories().filter(u"Day"_s).size(), 1) << "the button takes the cell in hand along";
}

TEST_F(MstKinsyuPage, AWindowThatComesBackGoesOnInTheCellInHandAndMayGoWithIt) {
    const auto page = open<ui::mst_kinsyu_page>();
    click_cell(grid(*page, "hyou"), 4, 1);
    type(u"Ni"_s);
    page->showMinimized();
    QCoreApplication::processEvents();
    page->showNormal();
    QCoreApplication::processEvents();
    EXPECT_EQ(page->form().atai.cell, (base::Cell{4, 1}));
    EXPECT_EQ(page->form().atai.text, u"Ni"_s);
    EXPECT_TRUE(page->form().atai.visible);
}

TEST_F(MstKinsyuPage, ANameThatCantBeSavedStaysInHandAndTheReasonIsToldOnce) {
    const auto page = open<ui::mst_kinsyu_page>();
    QSignalSpy closed(page.get(), &ui::MasterPage::close_wanted);
    click_cell(grid(*page, "hyou"), 4, 1);
    type(u"Ni"_s);
    auto& desktop = dynamic_cast<support::FakeHost&>(dynamic_cast<ui::Application&>(*qApp).host());
    const QString data = store::rovdata_path(settings);
    ASSERT_TRUE(QFile::rename(data, data + u".away"_s));
    click_cell(grid(*page, "hyou"), 2, 1);
    EXPECT_FALSE(std::exchange(desktop.shown, {}).empty());
    EXPECT_EQ(page->form().atai.cell, (base::Cell{4, 1}));
    click(*page, 0);
    ASSERT_TRUE(QFile::rename(data + u".away"_s, data));
    EXPECT_EQ(std::exchange(desktop.shown, {}).size(), 1U);
    EXPECT_EQ(closed.count(), 0);
    auto* box = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_TRUE(box);
    EXPECT_EQ(box->selectedText(), u"Ni"_s);
    type(u"Night"_s);
    EXPECT_EQ(page->form().hyou(4, masters::mst_kinsyu::name_col), u"Night"_s);
    click(*page, 0);
    EXPECT_EQ(closed.count(), 1);
    EXPECT_EQ(categories().last(), u"4|Night"_s);
}

using MstKinjikanPage = MasterPages;

TEST_F(MstKinjikanPage, HowTheWorkStandsIsPaintedWhileItGoesOn) {
    const auto page = open<ui::mst_kinjikan_page>();
    const support::PaintedWords painted;
    click_cell(grid(*page, "hyoulist"), 1, 0);
    click(*page, 1);
    click(*page, 2);
    for (const QString& word : {u"抽出中"_s, u"保存処理中"_s, u"削除処理中"_s})
        EXPECT_TRUE(painted.words.contains(word)) << word.toStdString();
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
    click_cell(*page->hyou(), 1, 1);
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

TEST_F(MstSyainPage, ADeletedEmployeeIsHadBackByTheButtonBesideTheLine) {
    const auto page = open<ui::mst_syain_page>({1020, 660});
    auto& line = *page->findChild<ui::StandingLine*>();
    EXPECT_TRUE(line.button()->isHidden());
    click_cell(*page->hyou(), 1, 1);
    click(*page, 2);
    EXPECT_EQ(line.words()->text(), u"社員 3 を削除しました"_s);
    QTest::mouseClick(line.button(), Qt::LeftButton);
    EXPECT_EQ(rows("select 社員番号 from syain order by rowid"), QStringList({u"3"_s, u"1"_s, u"2"_s}));
    EXPECT_TRUE(line.button()->isHidden());
    EXPECT_TRUE(page->atai(1)->hasFocus());
}

TEST_F(MstSyainPage, AReadingIsComposedInItsBoxAndCountsWhenItIsConverted) {
    const auto page = open<ui::mst_syain_page>();
    page->atai(3)->setFocus();
    compose(u"やまだ"_s);
    EXPECT_EQ(page->form().atai[3], QString());
    type(u"ヤマダ"_s);
    EXPECT_EQ(page->form().atai[3], u"ヤマダ"_s);
}

TEST_F(MasterPages, EachMasterOpensTellsItsHelpAndLeadsBackToTheMenu) {
    ui::MainWindow window(session);
    support::bring_up(window, {1366, 768});
    for (const auto& [page, help] : {std::pair{Page::mst_syain, u"01.htm"_s}, {Page::mst_kinsyu, u"02.htm"_s},
             {Page::mst_kinjikan, u"03.htm"_s}, {Page::mst_kintype, u"04.htm"_s}, {Page::mst_kyuka, u"05.htm"_s}}) {
        window.pages().show(page);
        const auto& master = dynamic_cast<ui::MasterPage&>(*window.pages().page(page));
        for (auto* button : master.findChildren<ui::PictureButton*>())
            if (button->accessibleName() == u"ヘルプ"_s)
                button->click();
        EXPECT_TRUE(host.opened.value(0).endsWith(u"/001-3-"_s + help));
        host.opened.clear();
        click(master, 0);
        EXPECT_FALSE(window.pages().is_open(page));
        EXPECT_EQ(window.pages().currentWidget(), window.pages().page(Page::mst_00));
    }
}

} // namespace
