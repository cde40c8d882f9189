#include "entry/draft_store.h"
#include "support/person.h"
#include "ui/entry/clash_panel.h"
#include "ui/entry/ent_rovena_page.h"
#include "ui/entry/look_panel.h"
#include "ui/entry_company.h"

#include <QPushButton>
#include <QTableWidget>
#include <gtest/gtest.h>

namespace {

using namespace base;
using support::click_cell, support::press, support::type;
using Row = std::pair<QString, QString>;

/// What a panel that came up says, a line a row; then that button of it is pressed.
struct Panel : QTimer {
    QStringList rows;
    explicit Panel(const QString& button) {
        callOnTimeout(this, [this, button] { answer(button); });
        start();
    }
    void answer(const QString& caption) {
        QWidget* panel = QApplication::activeModalWidget();
        if (!panel)
            return;
        stop();
        const auto* table = panel->findChild<QTableWidget*>();
        for (int r = 0; r < table->rowCount(); ++r)
            rows << table->item(r, 0)->text() + u' ' + (table->item(r, 1) ? table->item(r, 1)->text() : QString());
        for (auto* button : panel->findChildren<QPushButton*>())
            if (button->text() == caption)
                return button->click();
    }
};

struct DraftPage : testing::Test, EntryCompany {
    std::optional<ui::Whole<ui::ent_rovena_page>> page;

    DraftPage() {
        look_before_saving(true);
        QDir().mkpath(store::exchange_folder(settings));
        store::Database::create(store::exchange_path(settings, 1), store::Kind::Exchange);
        open();
    }
    void open() {
        page.emplace(session);
        support::bring_up(*page, {1366, 708});
        press(Qt::Key_F8);
    }
    const entry::ent_rovena& form() const { return page->form(); }
    const QString& cell(int row, int col) const { return form().sheet.hyou(row, col); }
    qint64 posted() const {
        auto exchange = store::Database::open(store::exchange_path(settings, 1), store::Kind::Exchange);
        auto count = exchange.prepare("select count(*) from jyusin");
        count.step();
        return count.row().number(0);
    }
    void type_day(const QString& in, const QString& out) {
        type(in);
        press(Qt::Key_Return);
        type(out);
    }
};

} // namespace

TEST_F(DraftPage, SavingADayThatIsntCalculatedAsksAndCalculatesFirst) {
    type_day(u"800"_s, u"1730"_s);
    Panel back(u"戻る"_s);
    press(Qt::Key_F9);
    EXPECT_EQ(back.rows,
        QStringList({u"1日（金） まだ計算していません"_s, u"1日（金） 0:30 がどの時間帯にも入っていません"_s}));
    EXPECT_EQ(posted(), 0);
    QApplication::setActiveWindow(&*page); // as a window manager does when a panel has gone
    Panel calculate(u"計算してから登録"_s);
    press(Qt::Key_F9);
    EXPECT_EQ(cell(1, 5), u"8:30"_s);
    EXPECT_GT(posted(), 0);
    EXPECT_TRUE(page->controls().standing->text().startsWith(u"反映待ち"_s));
}

TEST_F(DraftPage, AMonthWithNothingOffIsSavedWithoutAWord) {
    type_day(u"830"_s, u"1730"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(page->controls().standing->text(), u"未登録 1日"_s);
    press(Qt::Key_F9);
    EXPECT_GT(posted(), 0);
}

TEST_F(DraftPage, TheKeyboardAloneReachesTheKindsAndTheNextEmployee) {
    press(Qt::Key_F6);
    type(u"2"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(cell(1, 7), u"有休"_s);
    type_day(u"2530"_s, u"1730"_s);
    EXPECT_EQ(page->controls().standing->text(), u"25:30 は 130 と入力します"_s);
    press(Qt::Key_F8);
    EXPECT_EQ(form().syalab, u"1:佐藤 花子"_s);
    type(u"9"_s);
    press(Qt::Key_F7);
    EXPECT_EQ(form().syalab, u"3:山田 太郎"_s);
    EXPECT_EQ(cell(1, 7), u"有休"_s);
    EXPECT_TRUE(form().hyou_syain.Look(2, 0).dot) << "what was typed in the cell in hand is kept as well";
}

TEST_F(DraftPage, ADayThatAnotherPcSavedMeanwhileIsShownSideBySide) {
    type_day(u"830"_s, u"1730"_s);
    press(Qt::Key_Return);
    page.reset();
    rovdata().exec("insert into rovmei values (1, 20041001, 1000, 1900, 100, 800, '')");
    Panel decide(u"決定"_s);
    open();
    QCoreApplication::processEvents();
    EXPECT_EQ(decide.rows, QStringList{u"1日（金） "_s});
    EXPECT_EQ(cell(1, 2), u"10:00"_s) << "what is stored stands first";
    EXPECT_EQ(page->controls().standing->text(), u""_s);
}
