#include "frame/startup.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "frame/drive_tree.h"
#include "frame/error_list.h"
#include "frame/kept_files.h"
#include "support/fake_host.h"
#include "support/stored.h"

#include <gtest/gtest.h>

using namespace base;
using frame::Start;
using store::Database;
using store::Kind;

/// One start of the program in a new tree.
class StartUp : public ::testing::Test {
protected:
    /// A new process: settings that nobody has read yet.
    Start start(const std::function<void(Start)>& show = {}) {
        settings = {};
        store::SettingTables tables(settings);
        frame::TurnLink link(settings, host);
        frame::stg form({settings, host, tables, link}, root + u"/rovena100"_s, [&] { labels << form.Label1; });
        const Start result = form.Form_Activate(show);
        image_visible = form.Image1_Visible;
        return result;
    }

    void set(const QString& table, const QString& key, const QString& value) {
        store::SettingTables(found).設定書込(table, key, value);
    }
    QString stored(const QString& table, const QString& key) {
        return store::SettingTables(found).設定読込(table, key);
    }

    DriveTree tree;
    base::Settings& found = tree.settings; ///< to prepare the tree
    const QString root = found.local_root;
    base::Settings settings;
    support::FakeHost host;
    QStringList labels;
    bool image_visible = false;
};

const QString share = u"\\\\main\\rovena"_s;

TEST_F(StartUp, TheFirstStartLeadsToTheWizardAndEveryLaterOneToTheMainFrame) {
    const QString folder = store::exchange_folder(found);
    ASSERT_TRUE(QFile(folder).open(QIODevice::WriteOnly)) << "in the way";
    EXPECT_THROW(start(), store::Error);
    QFile::remove(folder);
    for (const QString& path : {store::losys_path(found), store::comsys_path(found), store::allsystem_path(found)}) {
        ASSERT_TRUE(QFile::rename(path, path + u".away"_s));
        EXPECT_THROW(start(), store::Error) << path.toStdString();
        ASSERT_TRUE(QFile::rename(path + u".away"_s, path));
    }
    EXPECT_THROW(start([](Start) { throw std::runtime_error("no picture"); }), std::runtime_error);
    EXPECT_EQ(start(), Start::fir_start) << "a start that failed isn't the first";
    EXPECT_EQ(start(), Start::mainform);
    EXPECT_EQ(stored(u"rov_kihon"_s, u"sokdataバージョン"_s), u"2006041301"_s);
    EXPECT_EQ(labels.first(), u"Ver.R240-03"_s);
    EXPECT_TRUE(host.shown.empty());
}

TEST_F(StartUp, EmptyRootsBecomeTheDefaultAreStoredAndNotConnectedOnADrive) {
    host.share = [](const QString&, const QString&, const QString&) -> bool { throw std::logic_error("no share"); };
    start();
    EXPECT_EQ(settings.install_drive, tree.folder.path());
    const QString native = platform::native(root);
    for (const QString& path : {settings.server_root, settings.local_root, stored(u"losystem"_s, u"サーバーＰＣ"_s),
             stored(u"losystem"_s, u"ローカルＰＣ"_s)})
        EXPECT_EQ(path, native);
}

TEST_F(StartUp, SettingsAreReadFromBothTablesAndAFirstDayThatNoMonthHasCountsAsTheFirst) {
    using base::Settings;
    const struct {
        QString table, key, stored;
        int Settings::*setting;
        int read;
    } rows[] = {
        {u"losystem"_s, u"使用区分"_s, u"1"_s, &Settings::use_class, 1},
        {u"losystem"_s, u"ネット情報"_s, u"1"_s, &Settings::net_info, 1},
        {u"kihon"_s, u"和西暦表示"_s, u"1"_s, &Settings::date_style, 1},
        {u"kihon"_s, u"先付け日付"_s, u"10"_s, &Settings::forward_date, 10},
        {u"kihon"_s, u"月初日付"_s, u"21"_s, &Settings::month_start_day, 21},
        {u"kihon"_s, u"月初日付"_s, u"31"_s, &Settings::month_start_day, 31},
        {u"kihon"_s, u"月初日付"_s, u"32"_s, &Settings::month_start_day, 1},
        {u"kihon"_s, u"月初日付"_s, u"-3"_s, &Settings::month_start_day, 1},
        {u"kihon"_s, u"月初日付"_s, QString(), &Settings::month_start_day, 1},
    };
    set(u"kihon"_s, u"サーバー名"_s, u" main "_s);
    for (const auto& row : rows) {
        set(row.table, row.key, row.stored);
        start();
        EXPECT_EQ(settings.*row.setting, row.read) << row.key.toStdString() << row.stored.toStdString();
        EXPECT_EQ(stored(row.table, row.key), row.stored) << "mended in memory only";
    }
    EXPECT_EQ(settings.server_name, u"main"_s);
    EXPECT_TRUE(image_visible);
    set(u"kihon"_s, u"特別ソフト"_s, u"1"_s);
    start();
    EXPECT_FALSE(image_visible) << "of a tailored installation";
}

TEST_F(StartUp, TheNewestEraComesFirstAndSixAreTaken) {
    const auto change = [this](std::string_view sql) {
        Database::open(store::comsys_path(found), Kind::Comsys).exec(sql);
        start();
    };
    change("delete from waseihen; insert into waseihen (元号名, 開始日, 終了日, 差年) values"
           " ('昭和', 19261225, 19890107, 1925), ('平成', 19890108, 99999999, 1988)");
    EXPECT_EQ(settings.era_name[0], u"平成"_s);
    EXPECT_EQ(settings.era_start[0], 19890108);
    EXPECT_EQ(settings.era_end[0], 99999999);
    EXPECT_EQ(settings.era_offset[0], 1988);
    EXPECT_EQ(settings.era_name[1], u"昭和"_s);
    EXPECT_EQ(settings.era_start[2], 0) << "fewer than six rows leave the rest empty";
    change("insert into waseihen (元号名) values ('a'), ('b'), ('c'), ('d'), ('e'), ('f')");
    EXPECT_EQ(settings.era_name[0], u"f"_s);
    EXPECT_EQ(settings.era_name[5], u"a"_s);
}

TEST_F(StartUp, OnlyAPCOfClassTwoLeavesTheExchangeFilesAloneAndTheNewsOfTheLastRunGoes) {
    const QString news = root + u"/rovena100/data/trn/info/intinfrov.dat"_s;
    QDir().mkpath(QFileInfo(news).path());
    ASSERT_TRUE(QFile(news).open(QIODevice::WriteOnly));
    for (const int use_class : {2, 1}) {
        set(u"losystem"_s, u"使用区分"_s, digits(use_class));
        start();
        for (const int number : {1, 20})
            EXPECT_EQ(QFileInfo::exists(store::exchange_path(found, number)), use_class != 2) << number;
    }
    EXPECT_FALSE(QFileInfo::exists(news));
}

TEST_F(StartUp, ADamagedExchangeFileIsToldWithTheNameUnderWhichItIsKept) {
    start();
    const QByteArray damaged = support::bytes_of(store::exchange_path(found, 1)).first(9000);
    support::put_bytes(store::exchange_path(found, 1), damaged);
    EXPECT_EQ(start(), Start::mainform);
    const QDir kept(frame::kept_folder(found), u"*.kowareta"_s, QDir::Name);
    const QString name = kept.entryList().value(0);
    EXPECT_EQ(support::bytes_of(kept.filePath(name)), damaged);
    ASSERT_EQ(host.shown.size(), 1u);
    for (const QString& text :
        {host.shown[0].text, QString::fromUtf8(support::bytes_of(frame::error_file_path(found)))})
        EXPECT_TRUE(text.contains(u"hanjyusin01.mdb"_s) && text.contains(name)) << text.toStdString();
    host.shown.clear();
    start();
    EXPECT_TRUE(host.shown.empty());
    support::put_bytes(store::exchange_path(found, 2), damaged);
    QFile::remove(frame::error_file_path(found));
    QDir().mkpath(frame::error_file_path(found));
    start();
    EXPECT_EQ(host.shown.size(), 1u) << "told, though it can't be written down";
}

TEST_F(StartUp, AShareIsConnectedWithTheStoredAccountBeforeItIsRead) {
    set(u"losystem"_s, u"サーバーＰＣ"_s, share);
    set(u"losystem"_s, u"winユーザー名"_s, u" clerk "_s);
    set(u"losystem"_s, u"winパスワード"_s, u"word "_s);
    QStringList asked;
    host.share = [&](const QString& name, const QString& user, const QString& password) {
        asked << name << user << password;
        settings.server_root = root; // the share is there now
        return true;
    };
    EXPECT_EQ(start(), Start::fir_start);
    EXPECT_EQ(asked, QStringList({share, u"clerk"_s, u"word"_s}));
}

TEST_F(StartUp, AShareOutOfReachAsksForTheAccountUntilThePersonGivesUp) {
    set(u"losystem"_s, u"サーバーＰＣ"_s, share);
    QStringList tried;
    host.share = [&](const QString&, const QString& user, const QString& password) {
        tried << user + u'/' + password;
        return false;
    };
    host.answers = {platform::Answer::Cancel, platform::Answer::Cancel, platform::Answer::Ok};
    host.inputs = {u"clerk"_s, u"word"_s, std::nullopt, std::nullopt};
    EXPECT_EQ(start(), Start::End);
    EXPECT_EQ(tried, QStringList({u"/"_s, u"clerk/word"_s, u"/"_s}));
    EXPECT_EQ(
        host.shown[0], (support::Shown{u"メインＰＣを起動してください。"_s, QString(), platform::Buttons::OkCancel}));
    EXPECT_EQ(host.prompts.first(2),
        QStringList({u"windowsアカウントを入力してください"_s, u"Windowsパスワードトを入力してください"_s}));
    EXPECT_EQ(stored(u"losystem"_s, u"winユーザー名"_s), QString()) << "what was typed isn't stored";
}
