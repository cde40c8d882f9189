// The report screen, its search and the error list over real widgets, where focus and keys are the point.

#include "frame/error_list.h"
#include "support/person.h"
#include "support/stored.h"
#include "ui/entry_company.h"
#include "ui/main_window.h"
#include "ui/pages/errform_page.h"
#include "ui/pages/ken_mst_dialog.h"
#include "ui/pages/rov_01_page.h"
#include "ui/parts/work_bar.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <gtest/gtest.h>

namespace {

using namespace base;
using frame::Page;
using support::press;
using support::type;

/// The main window with a report in view, on 2004/10/5.
struct Rov01Page : testing::Test, EntryCompany {
    std::optional<ui::MainWindow> window;

    Rov01Page() {
        comsys().exec(
            "insert into syain (システム番号, 社員番号, 社員名, フリガナ) values (1, 3, '山田 太郎', 'ヤマダ'),"
            " (2, 1, '佐藤 花子', 'サトウ'), (3, 2, '田中 次郎', 'タナカ')");
        tables.設定書込(u"losystem"_s, u"プリンター１"_s, u"PDF"_s);
    }
    ui::rov_01_page& open(int report, QSize size = {1366, 768}) {
        window.emplace(session);
        support::bring_up(*window, size);
        window->form().report_no = report;
        window->pages().show(Page::rov_01);
        QCoreApplication::processEvents();
        return page();
    }
    ui::rov_01_page& page() { return *qobject_cast<ui::rov_01_page*>(window->pages().page(Page::rov_01)); }
    static void click(QWidget* at) { QTest::mouseClick(at, Qt::LeftButton); }
};

} // namespace

TEST_F(Rov01Page, AReportIsExtractedByEnterAlone) {
    const ui::rov_01_conditions& boxes = open(5).conditions();
    EXPECT_TRUE(boxes.ymd(0)->hasFocus());
    EXPECT_EQ(boxes.ymd(0)->selectedText(), u"20041001"_s);
    EXPECT_EQ(boxes.ymd(0)->palette().color(QPalette::Base), QColor(240, 240, 255));
    type(u"9x/03 Enter"_s);
    EXPECT_EQ(boxes.ymd(0)->text(), u"2004/9/3"_s) << "what is no digit isn't taken";
    EXPECT_TRUE(boxes.ymd(1)->hasFocus());
    press(Qt::Key_Left);
    EXPECT_TRUE(boxes.ymd(1)->hasFocus()) << "the text was selected";
    QTest::keyClick(boxes.ymd(1), Qt::Key_Home);
    press(Qt::Key_Left);
    EXPECT_TRUE(boxes.ymd(0)->hasFocus());
    type(u"Enter Enter 3 Enter"_s);
    EXPECT_EQ(boxes.ntancd(0)->text(), u"山田 太郎"_s);
    type(u"8 Enter"_s);
    EXPECT_EQ(boxes.tancd(1)->text(), QString()) << "nobody has this number";
    EXPECT_TRUE(page().botan(1)->isDown()) << "the button shows that Enter extracts now";
    press(Qt::Key_Return);
    EXPECT_TRUE(page().form().report.midasi[1].contains(u"2004/9/3"_s));
    EXPECT_TRUE(boxes.ymd(0)->hasFocus());
    EXPECT_FALSE(page().botan(1)->isDown());
}

TEST_F(Rov01Page, ANameSendsTheKeyboardToItsNumber) {
    open(1);
    click(page().conditions().ntancd(1));
    EXPECT_TRUE(page().conditions().tancd(1)->hasFocus());
    EXPECT_FALSE(page().conditions().ntancd(1)->isEnabled());
    press(Qt::Key_Left);
    EXPECT_TRUE(page().conditions().tancd(0)->hasFocus());
    EXPECT_TRUE(page().conditions().ntancd(1)->isEnabled());
}

TEST_F(Rov01Page, AMonthThatIsNoneKeepsTheKeyboard) {
    const ui::rov_01_conditions& boxes = open(4).conditions();
    EXPECT_TRUE(boxes.yyyymm(0)->hasFocus());
    type(u"Enter 13 Enter"_s);
    EXPECT_TRUE(boxes.yyyymm(1)->hasFocus());
    EXPECT_EQ(page().form().report.hyou(31, 0), u"31"_s);
    QTest::keyClick(boxes.yyyymm(1), Qt::Key_A, Qt::ControlModifier);
    type(u"a9 Enter"_s);
    EXPECT_TRUE(boxes.tancd(0)->hasFocus());
    EXPECT_EQ(page().form().report.hyou(31, 0), QString()) << "September";
    boxes.yyyymm(1)->setFocus();
    press(Qt::Key_Up);
    EXPECT_EQ(page().form().report.hyou(31, 0), u"31"_s) << "August was chosen";
}

TEST_F(Rov01Page, TheSearchGoesWithItsScreen) {
    open(1);
    page().conditions().tancd(1)->setFocus();
    press(Qt::Key_F1);
    const QPointer<ui::ken_mst_dialog> search = page().search();
    EXPECT_EQ(search->pos(), window->pos() + QPoint(66, 13));
    window->form().midasi_Click(2);
    EXPECT_TRUE(search.isNull());
    EXPECT_EQ(window->form().mstkenflg, QString());
}

TEST_F(Rov01Page, WhileATallyRunsItsCancelButtonIsAllThatTakesInput) {
    open(4);
    auto* bar = window->findChild<ui::WorkBar*>();
    EXPECT_FALSE(bar->isVisible());
    int breaths = 0;
    host.on_yield = [&] {
        if (!bar->isVisible())
            return;
        ++breaths;
        EXPECT_FALSE(page().isEnabled());
        EXPECT_FALSE(window->close());
        click(page().botan(0));
        press(Qt::Key_Escape);
    };
    click(page().botan(1));
    EXPECT_EQ(breaths, 1);
    EXPECT_TRUE(window->isVisible() && page().isEnabled());
    EXPECT_FALSE(bar->isVisible());
    EXPECT_TRUE(host.shown.empty()) << "nobody was asked whether to end";
    EXPECT_TRUE(page().conditions().yyyymm(0)->hasFocus());
    EXPECT_EQ(page().form().msg_tai, u"中止しました"_s);
}

TEST_F(Rov01Page, TheHeadingsComeIntoSightWithTheEleventhClick) {
    open(2);
    for (int i = 0; i < 10; ++i)
        click(page().Image1());
    EXPECT_FALSE(page().pic_msg()->isVisible());
    click(page().Image1());
    EXPECT_TRUE(page().pic_msg()->isVisible());
}

TEST_F(Rov01Page, NothingIsCutOffAndTheScreenLeadsBackToItsMenu) {
    for (const QSize size : {QSize(1280, 720), QSize(1366, 768)})
        for (int report = 1; report <= 6; ++report) {
            open(report, size);
            click(page().botan(1));
            click(page().botan(2));
            const auto* line = page().findChild<QLabel*>(u"msg_tai"_s);
            ASSERT_NE(line, nullptr);
            const QString said = QString(line->text()).remove(u'\u200b');
            EXPECT_EQ(said, u"ＰＤＦファイル："_s + host.opened.last()) << "where the file lies";
            QCoreApplication::processEvents();
            for (const QWidget* part : page().findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
                EXPECT_TRUE(!part->isVisible() || page().rect().contains(part->geometry())) << report;
            for (const QWidget* part : page().conditions().findChildren<QWidget*>())
                EXPECT_TRUE(!part->isVisible() || part->parentWidget()->rect().contains(part->geometry())) << report;
        }
    click(page().botan(0));
    EXPECT_FALSE(window->pages().is_open(Page::rov_01));
    EXPECT_EQ(window->pages().currentWidget(), window->pages().page(Page::rov_00));
}

TEST_F(Rov01Page, TheErrorListShowsWhatIsThereEachTimeItIsOpened) {
    open(1);
    const QString path = frame::error_file_path(settings);
    QDir().mkpath(QFileInfo(path).path());
    for (const int lines : {1, 2}) {
        support::put_bytes(path, QByteArray("\"読めません\"\n").repeated(lines));
        window->pages().show(Page::errform);
        const auto& list = dynamic_cast<ui::errform_page&>(*window->pages().page(Page::errform));
        EXPECT_EQ(list.form().hyou.Rows(), 1 + lines);
        EXPECT_EQ(list.findChild<QLabel*>(u"msg_tai"_s)->text(), QString());
        click(list.botan(1));
        EXPECT_TRUE(list.findChild<QLabel*>(u"msg_tai"_s)->text().contains(u"エラーリスト_"_s));
        click(list.botan(0));
        EXPECT_FALSE(window->pages().is_open(Page::errform));
    }
}
