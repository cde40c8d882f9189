// The pages of the masters over real widgets, where focus and keys are the point.

#include "support/person.h"
#include "support/stored.h"
#include "ui/entry_company.h"
#include "ui/masters/mst_kinsyu_page.h"
#include "ui/masters/mst_syain_page.h"
#include "ui/parts/standing_line.h"

#include <QPushButton>
#include <QScrollBar>
#include <gtest/gtest.h>

namespace {

using namespace base;
using support::click_cell;
using support::type;

/// The work categories with the cell of row 4 in hand: of a new name, behind those that the company has.
struct MstKinsyuPage : testing::Test, EntryCompany {
    explicit MstKinsyuPage(int last_category = 3) {
        comsys().exec("insert into bangou (番号名称, 番号) values ('勤務種類', 3)");
        store::Database::open(store::allsystem_path(settings), store::Kind::Allsystem)
            .exec("insert into allsystem (個別dataファイル) values ('rovdata.mdb')");
        auto database = rovdata();
        for (int number = 4; number <= last_category; ++number)
            database.prepare("insert into kinsyu values (?, 'category')").bind(number).run();
        page.emplace(session);
        support::bring_up(*page, {1366, 708});
        click_cell(hyou(), 4, 1);
    }
    ui::GridView& hyou() { return *page->findChild<ui::GridView*>(); }
    QStringList categories() {
        return support::rows_of(store::rovdata_path(settings), store::Kind::Rovdata,
            "select システム番号, 種類名 from kinsyu order by システム番号");
    }
    std::optional<ui::Whole<ui::mst_kinsyu_page>> page;
};

struct LongMstKinsyuPage : MstKinsyuPage {
    LongMstKinsyuPage() : MstKinsyuPage(80) {}
};

struct MstSyainPage : testing::Test, EntryCompany {
    ui::Whole<ui::mst_syain_page> page{session};

    MstSyainPage() { support::bring_up(page, {1020, 660}); }
};

/// What the input method shows before it is converted.
void compose(const QString& text) {
    QInputMethodEvent composing(text, {});
    QApplication::sendEvent(QApplication::focusWidget(), &composing);
}

TEST_F(LongMstKinsyuPage, TheBoxFollowsItsCellThroughAScroll) {
    const QWidget* box = QApplication::focusWidget();
    hyou().verticalScrollBar()->setValue(2);
    EXPECT_EQ(box->geometry(), hyou().cell_rect({4, 1}));
    hyou().verticalScrollBar()->setValue(hyou().verticalScrollBar()->maximum());
    EXPECT_FALSE(hyou().viewport()->rect().intersects(box->geometry()));
}

TEST_F(MstKinsyuPage, OneConversionOfTheInputMethodIsOneChangeAndEnterOrAButtonSavesIt) {
    EXPECT_TRUE(QApplication::focusWidget()->testAttribute(Qt::WA_InputMethodEnabled));
    compose(u"やきん"_s);
    EXPECT_EQ(page->form().hyou(4, masters::mst_kinsyu::name_col), QString()) << "nothing is converted yet";
    type(u"夜勤"_s);
    EXPECT_EQ(page->form().hyou(4, masters::mst_kinsyu::name_col), u"夜勤"_s);
    EXPECT_EQ(page->form().hyou(4, masters::mst_kinsyu::mark_col), QString()) << "the first change sets no mark";
    type(u"手当 Enter Day"_s);
    EXPECT_EQ(categories().last(), u"4|夜勤手当"_s);
    QTest::mouseClick(page->botan(1), Qt::LeftButton);
    EXPECT_EQ(categories().filter(u"Day"_s).size(), 1) << "the button takes the cell in hand along";
}

TEST_F(MstKinsyuPage, AWindowThatComesBackGoesOnInTheCellInHandAndMayGoWithIt) {
    type(u"Ni"_s);
    page->showMinimized();
    QCoreApplication::processEvents();
    page->showNormal();
    QCoreApplication::processEvents();
    EXPECT_EQ(page->form().atai.cell, (base::Cell{4, 1}));
    EXPECT_EQ(page->form().atai.text, u"Ni"_s);
    EXPECT_TRUE(page->form().atai.visible);
}

TEST_F(MstSyainPage, ADeletedEmployeeIsHadBackByTheButtonBesideTheLine) {
    auto& line = *page.findChild<ui::StandingLine*>();
    EXPECT_TRUE(line.button()->isHidden());
    click_cell(*page.hyou(), 1, 1);
    QTest::mouseClick(page.botan(2), Qt::LeftButton);
    EXPECT_EQ(line.words()->text(), u"社員 3 を削除しました"_s);
    QTest::mouseClick(line.button(), Qt::LeftButton);
    EXPECT_EQ(support::rows_of(
                  store::rovdata_path(settings), store::Kind::Rovdata, "select 社員番号 from syain order by rowid"),
        QStringList({u"3"_s, u"1"_s, u"2"_s}));
    EXPECT_TRUE(line.button()->isHidden());
    EXPECT_TRUE(page.atai(1)->hasFocus());
}

TEST_F(MstSyainPage, AReadingIsComposedInItsBoxAndCountsWhenItIsConverted) {
    EXPECT_FALSE(page.atai(1)->testAttribute(Qt::WA_InputMethodEnabled)) << "a number";
    EXPECT_TRUE(page.atai(3)->testAttribute(Qt::WA_InputMethodEnabled));
    page.atai(3)->setFocus();
    compose(u"やまだ"_s);
    EXPECT_EQ(page.form().atai[3], QString());
    type(u"ヤマダ"_s);
    EXPECT_EQ(page.form().atai[3], u"ヤマダ"_s);
}

} // namespace
