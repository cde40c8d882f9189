#include "common/save_path.h"

#include "base/literals.h"
#include "platform/paths.h"
#include "store/test_tree.h"
#include "support/fake_host.h"
#include "support/stored.h"

#include <gtest/gtest.h>

using namespace base;

class SavePath : public ::testing::Test {
protected:
    QString ask(const QString& report, const QString& name = {}) {
        return common::CSV保存先取得(tree.settings, host, tables, report, name);
    }

    TestTree tree;
    const QString folder = tree.folder.path();
    store::SettingTables tables{tree.settings};
    const QString drive = platform::drive_root(tree.settings.install_drive);
    support::FakeHost host;
};

TEST_F(SavePath, TheFolderOfTheLastFileOfThisReportIsProposedAgain) {
    const QString first = folder + u"/a.csv"_s;
    host.paths = {first, std::nullopt, std::nullopt};
    EXPECT_EQ(ask(u"4"_s), first);
    EXPECT_EQ(host.dialogs[0].folder, drive) << "nothing is remembered yet";
    EXPECT_EQ(host.dialogs[0].title, u"ファイルを選択して下さい。"_s);
    EXPECT_EQ(host.dialogs[0].filter, u"CSV(*.csv)|*.csv"_s);
    EXPECT_EQ(tables.設定読込(u"losystem"_s, u"H_ph_exp_4"_s), platform::native(folder));

    EXPECT_EQ(ask(u"4"_s), QString()) << "cancelled";
    EXPECT_EQ(host.dialogs[1].folder, platform::native(folder));
    ask(u"5"_s);
    EXPECT_EQ(host.dialogs[2].folder, drive) << "another report has a folder of its own";
}

TEST_F(SavePath, AFolderThatIsGoneGivesWayToTheDrive) {
    tables.設定書込(u"losystem"_s, u"H_ph_exp_1"_s, folder + u"/gone"_s);
    tables.設定書込(u"losystem"_s, u"H_ph_exp_2"_s, folder + u'/');
    ask(u"1"_s);
    ask(u"2"_s);
    EXPECT_EQ(host.dialogs[0].folder, drive);
    EXPECT_EQ(host.dialogs[1].folder, folder) << "a separator at the end goes";
}

TEST_F(SavePath, ANameIsProposedThatAFileCanHaveAndNoneHas) {
    tables.設定書込(u"losystem"_s, u"H_ph_exp_4"_s, folder);
    support::put_bytes(folder + u"/表_10-1佐藤.csv"_s, {});
    ask(u"4"_s, u"表_10/1 佐\u3000藤\t?"_s);
    ask(u"5"_s, u"表"_s);
    ask(u"5"_s);
    EXPECT_EQ(host.dialogs[0].name, u"表_10-1佐藤(2).csv"_s);
    EXPECT_EQ(host.dialogs[1].name, u"表.csv"_s);
    EXPECT_EQ(host.dialogs[2].name, QString());
}

TEST_F(SavePath, TheDialogIsGivenItsTitleAndAPlainExtension) {
    host.paths = {u"/tmp/a.csv"_s + QChar::Null + u"rest"_s};
    EXPECT_EQ(common::ファイル保存ダイアログ(host, {{}, {}, u".csv"_s, {}}), u"/tmp/a.csv"_s);
    EXPECT_EQ(host.dialogs[0].title, u"ﾌｧｲﾙを開く"_s);
    EXPECT_EQ(host.dialogs[0].extension, u"csv"_s);
    EXPECT_EQ(common::ファイル保存ダイアログ(host, {}), std::nullopt);
}
