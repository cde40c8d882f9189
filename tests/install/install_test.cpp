#include "dump.h"
#include "install/install.h"
#include "store/files.h"
#include "store/setup.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace base;
using namespace store;

namespace {

constexpr std::array<std::pair<Kind, QString (*)(const frame::Settings&)>, 4> databases{{
    {Kind::Comsys, comsys_path},
    {Kind::Allsystem, allsystem_path},
    {Kind::Rovdata, rovdata_path},
    {Kind::Losys, losys_path},
}};

class InstallTree : public testing::Test {
protected:
    QTemporaryDir folder;
    QStringList said;

    install::Options options(const QString& name = u"root"_s) {
        install::Options made;
        made.root = folder.filePath(name);
        return made;
    }

    frame::Settings run(const install::Options& options) {
        install::run(options, folder.filePath(u"bin"_s), [this](const QString& line) { said << line; });
        return settings_of(options);
    }

    void write(const QString& name, const QByteArray& bytes) {
        const QString path = folder.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    static QByteArray bytes_of(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

TEST_F(InstallTree, HoldsWhatAFirstStartNeeds) {
    const frame::Settings settings = run(options());
    Database comsys = Database::open(comsys_path(settings), Kind::Comsys);
    EXPECT_EQ(rows_of(comsys, u"select 元号名, 略名, 開始日, 終了日, 差年 from waseihen order by rowid"_s),
        (QStringList{u"大正|T|19120730|19261224|1911"_s, u"昭和|S|19261225|19890107|1925"_s,
            u"平成|H|19890108|20190430|1988"_s, u"令和|R|20190501|99999999|2018"_s}));
    EXPECT_EQ(rows_of(comsys, u"select システム番号, 社員番号 is null, 社員名, フリガナ from syain"_s),
        QStringList{u"0|1|全体|ゼンタイ"_s});
    EXPECT_TRUE(初期セットアップ(settings)) << "the wizard is still to come";
    for (const QString& place : {u"comdata/data/jyusin"_s, u"comdata/data/bk/7"_s, u"rovena100/data/bk/1"_s,
             u"rovena100/data/trn/info"_s, u"rovena100/data/print"_s, u"rovena100/help"_s})
        EXPECT_TRUE(QFileInfo(settings.server_root + u'/' + place).isDir()) << place.toStdString();
}

TEST_F(InstallTree, KeepsEveryDatabaseThatExists) {
    const frame::Settings settings = run(options());
    QList<QByteArray> before;
    for (const auto& [kind, path] : databases)
        before << bytes_of(path(settings));
    install::Options again = options();
    again.sample = install::Sample{};
    again.use_class = 2;
    run(again);
    for (size_t i = 0; i < databases.size(); ++i)
        EXPECT_EQ(bytes_of(databases[i].second(settings)), before[qsizetype(i)]) << i;
}

TEST_F(InstallTree, MakesADatabaseThatIsMissingAmongOthers) {
    install::Options with_sample = options();
    with_sample.sample = install::Sample{4, 1, 202611};
    const frame::Settings settings = run(with_sample);
    const QStringList before = all_rows(rovdata_path(settings), Kind::Rovdata);
    ASSERT_TRUE(QFile::remove(rovdata_path(settings)));
    run(with_sample);
    EXPECT_EQ(all_rows(rovdata_path(settings), Kind::Rovdata), before);
}

TEST_F(InstallTree, WhatIsMadeAnewBesideMastersFitsThem) {
    const frame::Settings settings = run(options());
    Database::open(rovdata_path(settings), Kind::Rovdata)
        .exec("insert into kinsyu values (4, '夜'); insert into kinjisyu values (7, 20260401, 6, 100);"
              "insert into syain values (7, 12, '山田', 'ヤマダ', '', 'A', '')");
    run(options());
    EXPECT_FALSE(初期セットアップ(settings)) << "a register that was kept, with masters from elsewhere";

    ASSERT_TRUE(QFile::remove(allsystem_path(settings)) && QFile::remove(comsys_path(settings)));
    run(options());
    EXPECT_FALSE(初期セットアップ(settings)) << "the wizard would replace them";
    Database comsys = Database::open(comsys_path(settings), Kind::Comsys);
    EXPECT_EQ(rows_of(comsys, u"select 番号名称, 番号 from bangou order by rowid"_s),
        QStringList({u"勤務種類|6"_s, u"勤務時間|0"_s, u"休暇種類|0"_s, u"社員番号|7"_s}));
    EXPECT_EQ(rows_of(comsys, u"select * from syain order by システム番号 desc limit 1"_s),
        QStringList{u"7|12|山田|ヤマダ||A|"_s});
}

TEST_F(InstallTree, GivesAnotherPcItsOwnPartOnly) {
    install::Options client = options();
    client.use_class = 1;
    client.server_root = u"//main/qn"_s;
    client.share_user = u"clerk"_s;
    client.printer = u"LBP"_s;
    const frame::Settings settings = run(client);
    EXPECT_FALSE(QFileInfo::exists(comsys_path(settings)));
    Database losys = Database::open(losys_path(settings), Kind::Losys);
    EXPECT_EQ(rows_of(losys, u"select * from losystem order by 項目名"_s),
        (QStringList{u"winユーザー名|clerk"_s, u"サーバーＰＣ|//main/qn"_s, u"ネット情報|0"_s, u"プリンター１|LBP"_s,
            u"使用区分|1"_s}));
}

TEST_F(InstallTree, BringsProgramsAndAssetsUpToDateOnEachRun) {
    write(u"bin/rovena"_s, "old");
    write(u"art/botan/top_ent.BMP"_s, "picture");
    write(u"art/splash.bmp"_s, "splash");
    write(u"pages/help/img/a.png"_s, "page");
    QFile::setPermissions(folder.filePath(u"bin/rovena"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    install::Options with_assets = options();
    with_assets.assets = QStringList{QDir().relativeFilePath(folder.filePath(u"art"_s)), folder.filePath(u"pages"_s)};
    const QString product = run(with_assets).local_root + u"/rovena100/"_s;
    EXPECT_TRUE(said.contains(u"no jyusinkanri beside this program"_s));
    EXPECT_EQ(bytes_of(product + u"system/pic/botan/top_ent.BMP"_s), "picture");
    EXPECT_EQ(bytes_of(product + u"system/pic/splash.bmp"_s), "splash");
    EXPECT_EQ(bytes_of(product + u"help/img/a.png"_s), "page");
    EXPECT_TRUE(QFileInfo(product + u"system/exe/exe/rovena"_s).isExecutable());

    write(u"bin/rovena"_s, "new");
    write(u"art/botan/top_ent.BMP"_s, "better");
    run(with_assets);
    EXPECT_EQ(bytes_of(product + u"system/exe/exe/rovena"_s), "new");
    EXPECT_EQ(bytes_of(product + u"system/pic/botan/top_ent.BMP"_s), "better");
    EXPECT_EQ(QDir(product + u"system/exe/exe"_s).entryList(QDir::Files), QStringList{u"rovena"_s});
}

} // namespace
