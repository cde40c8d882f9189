#include "frame/mainform.h"

#include "base/literals.h"
#include "frame/help.h"
#include "frame/menus.h"
#include "frame/work_line.h"
#include "support/fake_host.h"
#include "support/fake_pages.h"

#include <gtest/gtest.h>

using namespace base;
using frame::Page;
using platform::Answer;

class MainForm : public ::testing::Test {
protected:
    MainForm() { settings.local_root = u"/srv/qn"_s; }

    base::Settings settings;
    support::FakeHost host;
    store::SettingTables tables{settings};
    frame::TurnLink link{settings, host};
    support::FakePages pages;
    int backups = 0;
    frame::mainform form{{settings, host, tables, link}, pages, [this] {
                             EXPECT_TRUE(pages.open.empty()) << "backup comes last";
                             ++backups;
                         }};
};

TEST_F(MainForm, ATopButtonClosesWhatIsOpenButTheLeaveMasterAndShowsItsPage) {
    form.Form_Load();
    form.midasi_Click(1);
    EXPECT_EQ(pages.open, std::set{Page::ent_rovena});
    pages.show(Page::mst_kyuka);
    form.flab = u"登録しました"_s;
    form.midasi_Click(2);
    EXPECT_EQ(pages.open, (std::set{Page::rov_00, Page::mst_kyuka})) << "the leave master stays open under it";
    EXPECT_EQ(form.gamenno, u"2"_s);
    EXPECT_EQ(form.flab, QString());
    pages.closed.clear();
    form.midasi_Click(3);
    EXPECT_TRUE(pages.is_open(Page::mst_00));
    EXPECT_EQ(form.gamenno, u"2"_s);
    EXPECT_EQ(pages.closed, (std::vector{Page::ent_rovena, Page::rov_00, Page::rov_01, Page::mst_00, Page::mst_syain,
                                Page::mst_kinjikan, Page::mst_kinsyu, Page::mst_kintype, Page::mst_kihon, Page::info}));
    EXPECT_TRUE(host.shown.empty()) << "nothing is asked";
}

TEST_F(MainForm, TheExitButtonAsksOnceAndTheBackupComesLast) {
    form.midasi_Click(1);
    form.flab = u"登録しました"_s;
    pages.closed.clear();
    host.answers = {Answer::No};
    form.midasi_Click(5);
    EXPECT_EQ(form.Tag + form.flab, u"登録しました"_s);
    EXPECT_TRUE(pages.closed.empty() && pages.is_open(Page::ent_rovena)) << "on No nothing happens";
    EXPECT_EQ(pages.unloads, 0);

    form.midasi_Click(5);
    EXPECT_EQ(form.Tag, u"end"_s);
    EXPECT_EQ(pages.unloads, 1);
    pages.closed.clear();
    EXPECT_TRUE(form.Form_QueryUnload());
    EXPECT_EQ(host.shown.size(), 2U) << "one question a click, none on closing";
    EXPECT_EQ(pages.closed,
        (std::vector{Page::errform, Page::ent_rovena, Page::rov_00, Page::rov_01, Page::mst_00, Page::mst_syain,
            Page::mst_kinjikan, Page::mst_kinsyu, Page::mst_kintype, Page::mst_kyuka, Page::info}));
    EXPECT_EQ(backups, 1);
}

TEST_F(MainForm, AMenuButtonGivesWayToItsPageIfItIsThere) {
    const auto press = [this](auto& menu, Page page, int index) {
        pages.open = {page};
        menu.botan_Click(index);
        return pages.open;
    };
    frame::mst_00 masters(form, pages);
    frame::rov_00 reports(form, pages);
    EXPECT_EQ(press(masters, Page::mst_00, 4), std::set{Page::mst_kihon});
    EXPECT_EQ(press(reports, Page::rov_00, 4), std::set{Page::rov_01});
    EXPECT_EQ(form.report_no, 4);
    pages.absent = {Page::rov_01, Page::mst_syain};
    EXPECT_EQ(press(reports, Page::rov_00, 1), std::set{Page::rov_00});
    EXPECT_EQ(press(masters, Page::mst_00, 0), std::set{Page::mst_00});
}

TEST_F(MainForm, TheLandingPageStandsAtTheStartAndAfterAMenuUnlessItIsATailoredInstallation) {
    const auto stands = [this](const std::set<Page>& expected) {
        pages.open.clear();
        form.Form_Load();
        EXPECT_EQ(form.gamenno, u"0"_s);
        EXPECT_EQ(pages.open, expected);
        pages.open = {Page::rov_00};
        frame::rov_00(form, pages).endbotan_Click();
        EXPECT_EQ(pages.open, expected);
        pages.open = {Page::mst_00};
        frame::mst_00(form, pages).endbotan_Click();
        EXPECT_EQ(pages.open, expected);
    };
    stands({Page::info});
    settings.special_soft = 1;
    stands({});
}

TEST(WorkLine, TellsHowFarTheWorkIsUntilItIsCancelledOrDone) {
    support::FakeHost host;
    frame::WorkLine line(host);
    QList<int> told;
    line.changed = [&] { told << (line.running() ? line.percent() : -2); };
    {
        const frame::WorkLine::Running work(line, u"読んでいます"_s);
        for (const auto& [done, total, percent] :
            {std::tuple(5, 0, -1), {0, 3, 0}, {1, 3, 33}, {3, 3, 100}, {9, 3, 100}, {-1, 3, 0}}) {
            EXPECT_TRUE(line.advance(done, total));
            EXPECT_EQ(line.percent(), percent) << done << " of " << total;
        }
        line.cancel();
        EXPECT_FALSE(line.advance(1, 3) || line.advance(2, 3));
    }
    EXPECT_EQ(told.first(), -1);
    EXPECT_EQ(told.last(), -2);
    const frame::WorkLine::Running next(line, u"登録しています"_s);
    EXPECT_TRUE(line.advance(1, 2)) << "another work isn't cancelled";
}

TEST(MenuBand, StandsAtTheFootOfThePageButNeverAboveItsPlace) {
    EXPECT_EQ(frame::pic_bota_top(9000, 900), 9000 - 900 - 300);
    EXPECT_EQ(frame::pic_bota_top(900 + 300 + 4605, 900), 4605) << "the first height at which both agree";
    EXPECT_EQ(frame::pic_bota_top(5000, 900), 4605);
}

TEST_F(MainForm, HelpOpensThePageOfTheScreenAtAnAddressThatABrowserReads) {
    const QString folder = u"file://localhost/srv/qn/rovena100/help/"_s;
    const std::tuple<QString, int, QString> cases[]{{u"ent_rovena"_s, 0, u"002-0.htm"_s},
        {u"rov_01"_s, 4, u"003-1-05.htm"_s}, {u"rov_01"_s, 5, u"003-1-06.htm"_s}, {u"rov_01"_s, 6, u"003-1-04.htm"_s},
        {u"rov_01"_s, 7, u"index.html"_s}, {u"errform"_s, 0, u"index.html"_s}};
    QStringList expected;
    for (const auto& [name, report, page] : cases) {
        frame::ヘルプ表示(settings, host, name, report);
        expected << folder + page;
    }
    frame::ヘルプ表示(settings, host, QString()); // opens none
    form.midasi_Click(4);
    expected << folder + u"index.html"_s;
    for (const auto& [root, address] : {std::pair(u"C:\\Program Files\\q"_s, u"C:/Program Files/q"_s),
             {u"/home/clerk/Program Files/q"_s, u"home/clerk/Program%20Files/q"_s}}) {
        settings.local_root = root;
        form.midasi_Click(4);
        expected << u"file://localhost/"_s + address + u"/rovena100/help/index.html"_s;
    }
    EXPECT_EQ(host.opened, expected);
}
