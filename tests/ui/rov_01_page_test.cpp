// The report screen and the error list over real widgets.

#include "frame/error_list.h"
#include "support/person.h"
#include "support/stored.h"
#include "ui/entry_company.h"
#include "ui/main_window.h"
#include "ui/pages/errform_page.h"
#include "ui/pages/rov_01_page.h"
#include "ui/parts/work_bar.h"

#include <QLabel>
#include <gtest/gtest.h>

namespace {

using namespace base;
using frame::Page;

/// The main window with report 4 in view.
struct Rov01Page : testing::Test, EntryCompany {
    ui::MainWindow window{session};

    Rov01Page() {
        comsys().exec("insert into syain (システム番号, 社員番号, 社員名) values (1, 3, '山田 太郎')");
        tables.設定書込(u"losystem"_s, u"プリンター１"_s, u"PDF"_s);
        support::bring_up(window, {1366, 768});
        window.form().report_no = 4;
        window.pages().show(Page::rov_01);
        QCoreApplication::processEvents();
    }
    ui::rov_01_page& page() { return dynamic_cast<ui::rov_01_page&>(*window.pages().page(Page::rov_01)); }
    static void click(QWidget* at) { QTest::mouseClick(at, Qt::LeftButton); }
};

} // namespace

TEST_F(Rov01Page, WhileATallyRunsItsCancelButtonIsAllThatTakesInput) {
    auto* bar = window.findChild<ui::WorkBar*>();
    EXPECT_FALSE(bar->isVisible());
    int breaths = 0;
    host.on_yield = [&] {
        if (!bar->isVisible())
            return;
        ++breaths;
        EXPECT_FALSE(page().isEnabled());
        EXPECT_FALSE(window.close());
        click(page().botan(0));
        support::press(Qt::Key_Escape);
    };
    click(page().botan(1));
    EXPECT_EQ(breaths, 1);
    EXPECT_TRUE(window.isVisible() && page().isEnabled());
    EXPECT_FALSE(bar->isVisible());
    EXPECT_TRUE(host.shown.empty()) << "nobody was asked whether to end";
    EXPECT_TRUE(page().conditions().yyyymm(0)->hasFocus());
    EXPECT_EQ(page().form().msg_tai, u"中止しました"_s);
}

TEST_F(Rov01Page, TheHeadingsComeIntoSightWithTheEleventhClick) {
    for (int i = 0; i < 10; ++i)
        click(page().Image1());
    EXPECT_FALSE(page().pic_msg()->isVisible());
    click(page().Image1());
    EXPECT_TRUE(page().pic_msg()->isVisible());
}

TEST_F(Rov01Page, TheErrorListShowsWhatIsThereEachTimeItIsOpened) {
    const QString path = frame::error_file_path(settings);
    QDir().mkpath(QFileInfo(path).path());
    for (const int lines : {1, 2}) {
        support::put_bytes(path, QByteArray("\"読めません\"\n").repeated(lines));
        window.pages().show(Page::errform);
        const auto& list = dynamic_cast<ui::errform_page&>(*window.pages().page(Page::errform));
        EXPECT_EQ(list.form().hyou.Rows(), 1 + lines);
        EXPECT_EQ(list.findChild<QLabel*>(u"msg_tai"_s)->text(), QString());
        click(list.botan(1));
        EXPECT_TRUE(list.findChild<QLabel*>(u"msg_tai"_s)->text().contains(u"エラーリスト_"_s));
        click(list.botan(0));
        EXPECT_FALSE(window.pages().is_open(Page::errform));
    }
}
