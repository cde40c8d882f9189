#include "install/company.h"
#include "install/password.h"
#include "install/tree_settings.h"
#include "platform/paths.h"
#include "store/setting_tables.h"
#include "store/setup.h"

#include <QDir>
#include <QDirIterator>
#include <QProcess>
#include <QSysInfo>
#include <QTemporaryDir>
#ifdef Q_OS_LINUX
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#endif

namespace install {

class InstallTree : public testing::Test {
protected:
    QTemporaryDir folder;
    QStringList said;
    const QString bin = qEnvironmentVariable("ROVENA_BIN");
    const QString rovena = platform::program_file(u"rovena.exe"_s);

    Options options(const QString& root = u"root"_s) const {
        Options made;
        made.root = folder.filePath(root);
        return made;
    }

    base::Settings run(const Options& options) {
        install::run(options, folder.filePath(u"bin"_s), [this](const QString& line) { said << line; });
        return settings_of(options);
    }

    QString refusal(const Options& options) {
        try {
            run(options);
        } catch (const std::runtime_error& error) {
            return QString::fromUtf8(error.what());
        }
        return {};
    }

    static QString shared(base::Settings tree, const QString& key) {
        return SettingTables(tree).設定読込(u"kihon"_s, key);
    }
    /// What a PC's own table of settings holds.
    static QStringList of_pc(const base::Settings& tree) {
        return rows_of(losys_path(tree), Kind::Losys, "select * from losystem order by 項目名");
    }

    void write(const QString& name, const QByteArray& bytes) {
        const QString path = folder.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        support::put_bytes(path, bytes);
    }
};

TEST_F(InstallTree, HoldsWhatAFirstStartNeeds) {
    const base::Settings settings = run(options());
    EXPECT_EQ(rows_of(comsys_path(settings), Kind::Comsys,
                  "select 元号名, 略名, 開始日, 終了日, 差年 from waseihen order by rowid desc limit 2"),
        (QStringList{u"令和|R|20190501|99999999|2018"_s, u"平成|H|19890108|20190430|1988"_s}));
    EXPECT_EQ(rows_of(comsys_path(settings), Kind::Comsys,
                  "select システム番号, 社員番号 is null, 社員名, フリガナ from syain"),
        QStringList{u"0|1|全体|ゼンタイ"_s});
    EXPECT_TRUE(初期セットアップ(settings)) << "the wizard is still to come";
    for (const QString& place : {u"comdata/data/jyusin"_s, u"comdata/data/bk/7"_s, u"rovena100/data/bk/1"_s,
             u"rovena100/data/trn/info"_s, u"rovena100/data/print"_s, u"rovena100/help"_s})
        EXPECT_TRUE(QFileInfo(settings.server_root + u'/' + place).isDir()) << place.toStdString();
    EXPECT_EQ(rows_of(exchange_path(settings, 20), Kind::Exchange, "select * from jyusin"), QStringList());
}

TEST_F(InstallTree, KeepsEveryDatabaseThatExistsAndMakesOneThatIsMissing) {
    const auto bytes = [](const base::Settings& tree) {
        QList<QByteArray> all;
        for (const auto& path : {rovdata_path, comsys_path, allsystem_path, losys_path})
            all << support::bytes_of(path(tree));
        return all;
    };
    const base::Settings settings = make_company(options().root, {4, 1, 202611});
    const QStringList rows = all_rows(settings);
    const QList<QByteArray> before = bytes(settings);
    run(options());
    EXPECT_TRUE(bytes(settings) == before);
    Options again = options();
    again.sample = Sample{};
    EXPECT_TRUE(refusal(again).contains(u"--sample"_s));
    EXPECT_TRUE(bytes(settings) == before);
    ASSERT_TRUE(QFile::remove(rovdata_path(settings)));
    make_company(options().root, {4, 1, 202611});
    EXPECT_TRUE(all_rows(settings) == rows);
}

TEST_F(InstallTree, WhatIsMadeAnewBesideMastersFitsThem) {
    const base::Settings settings = run(options());
    Database::open(rovdata_path(settings), Kind::Rovdata)
        .exec("insert into kinsyu values (4, '夜'); insert into kinjisyu values (7, 20260401, 6, 100);"
              "insert into syain values (7, 12, '山田', 'ヤマダ', '', 'A', '')");
    run(options());
    EXPECT_FALSE(初期セットアップ(settings)) << "a register that was kept, with masters from elsewhere";

    ASSERT_TRUE(QFile::remove(allsystem_path(settings)) && QFile::remove(comsys_path(settings)));
    support::put_bytes(journal_of(comsys_path(settings)), QByteArray(700, 'x'));
    run(options());
    EXPECT_FALSE(QFileInfo::exists(journal_of(comsys_path(settings))))
        << "of a file that is gone: it spoils no new one";
    EXPECT_EQ(said.filter(u"put away "_s).size(), 1);
    EXPECT_FALSE(初期セットアップ(settings)) << "the wizard would replace them";
    EXPECT_EQ(rows_of(comsys_path(settings), Kind::Comsys, "select 番号名称, 番号 from bangou order by rowid"),
        QStringList({u"勤務種類|6"_s, u"勤務時間|0"_s, u"休暇種類|0"_s, u"社員番号|7"_s}));
    EXPECT_EQ(rows_of(comsys_path(settings), Kind::Comsys, "select * from syain order by システム番号 desc limit 1"),
        QStringList{u"7|12|山田|ヤマダ||A|"_s});
}

TEST_F(InstallTree, WritesWhatIsGivenIntoTheSettingsOfATreeThatIsThere) {
    run(options());
    Options given = options();
    given.use_class = 1;
    given.server_name = u"main"_s;
    given.info_server = u"news:80"_s;
    given.share_user = u"clerk"_s;
    given.share_password = u"secret"_s;
    given.printer = u"LBP"_s;
    const base::Settings settings = run(given);
    run(options());
    for (const QString& row :
        {u"使用区分|1"_s, u"winユーザー名|clerk"_s, u"winパスワード|secret"_s, u"プリンター１|LBP"_s})
        EXPECT_TRUE(of_pc(settings).contains(row)) << row.toStdString();
    EXPECT_EQ(shared(settings, u"サーバー名"_s) + u' ' + shared(settings, u"情報サーバー"_s), u"main news:80"_s);
    list_settings(given.root, [this](const QString& line) { said << line; });
    for (const QString& line : {u"使用区分 = 1"_s, u"winパスワード = ***"_s, u"サーバー名 = main"_s})
        EXPECT_TRUE(said.contains(line)) << line.toStdString();
    EXPECT_FALSE(said.join(u' ').contains(u"secret"_s));
}

TEST_F(InstallTree, TakesThePasswordOfTheShareFromAFileAndWarnsOfOneOnTheCommandLine) {
    Options given = options();
    given.share_user = u"clerk"_s;
    given.share_password_file = folder.filePath(u"secret"_s);
    EXPECT_THROW(complete_password(given, {}), std::runtime_error) << "no such file";
    write(u"secret"_s, "p w\r\nnot this\n");
    complete_password(given, {});
    EXPECT_EQ(given.share_password, u"p w"_s);
    given.share_password.clear();
    write(u"secret"_s, QByteArray("\xff\xfep\0w\0\n\0", 8)); // as editors of Windows may write it
    complete_password(given, {});
    EXPECT_EQ(given.share_password, u"pw"_s);
    QString warned;
    complete_password(given, [&](const QString& line) { warned = line; });
    EXPECT_TRUE(warned.contains(u"--share-password-file"_s));
}

TEST_F(InstallTree, OfAMainPcNamesTheMachineUntilItIsToldAnotherName) {
    const base::Settings settings = run(options());
    EXPECT_EQ(shared(settings, u"サーバー名"_s), QSysInfo::machineHostName());
    Options named = options();
    named.server_name = u"192.168.0.2"_s;
    for (const Options& next : {named, options()}) {
        run(next);
        EXPECT_EQ(shared(settings, u"サーバー名"_s), u"192.168.0.2"_s);
    }
}

TEST_F(InstallTree, OfAnotherPcNamesTheMainPcInTheSharedData) {
    const base::Settings main = run(options());
    Options client = options(u"client"_s);
    client.use_class = 2;
    client.server_root = main.server_root;
    client.server_name = u"main"_s;
    run(client);
    const base::Settings settings = run(options(u"client"_s)); // programs anew, as after an update
    EXPECT_TRUE(of_pc(settings).contains(u"サーバーＰＣ|"_s + main.server_root));
    EXPECT_EQ(shared(main, u"サーバー名"_s), u"main"_s);
    EXPECT_FALSE(QFileInfo::exists(comsys_path(settings))) << "no data of its own";

    client.server_root = folder.filePath(u"nowhere"_s);
    client.share_user = u"clerk"_s;
    client.printer = u"LBP"_s;
    EXPECT_TRUE(refusal(client).contains(u"--server-name"_s));
    EXPECT_EQ(of_pc(settings), (QStringList{u"winユーザー名|clerk"_s, u"サーバーＰＣ|"_s + client.server_root,
                                   u"ネット情報|0"_s, u"プリンター１|LBP"_s, u"使用区分|2"_s}))
        << "the rest is done, and no more";
}

#ifdef Q_OS_LINUX

TEST_F(InstallTree, AsksForThePasswordOfTheShareUnseen) {
    QFile keyboard;
    ASSERT_TRUE(keyboard.open(posix_openpt(O_RDWR | O_NOCTTY), QIODevice::ReadWrite | QIODevice::Unbuffered));
    ASSERT_TRUE(grantpt(keyboard.handle()) == 0 && unlockpt(keyboard.handle()) == 0);
    const auto answered = [&](const char* typed) {
        QProcess program;
        program.setStandardInputFile(QString::fromLocal8Bit(ptsname(keyboard.handle())));
        program.setReadChannel(QProcess::StandardError);
        program.start(bin + u"/rovena-install"_s, {options().root, u"--share-user"_s, u"clerk"_s});
        EXPECT_TRUE(program.waitForReadyRead()) << "the question";
        keyboard.write(typed);
        EXPECT_TRUE(program.waitForFinished());
        return program.exitCode();
    };
    EXPECT_EQ(answered("typed\n"), 0);
    EXPECT_TRUE(of_pc(settings_of(options())).contains(u"winパスワード|typed"_s));
    EXPECT_FALSE(keyboard.read(100).contains("typed"));
    EXPECT_EQ(answered("\x03\n"), 1) << "broken off";
}

TEST_F(InstallTree, BelongsToTheGroupThatItsFolderIsHandedDownTo) {
    const QString root = options().root;
    ASSERT_TRUE(QDir().mkpath(root) && chmod(QFile::encodeName(root).constData(), 02770) == 0);
    ASSERT_EQ(
        QProcess::execute(u"sh"_s, {u"-c"_s, u"umask 022; exec \"$0\" \"$1\""_s, bin + u"/rovena-install"_s, root}), 0);
    QDirIterator all(
        root, {u"*.mdb"_s}, QDir::AllDirs | QDir::Files | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        const QFile::Permissions permissions = all.nextFileInfo().permissions();
        EXPECT_TRUE(permissions.testFlag(QFile::WriteGroup)) << all.filePath().toStdString();
        EXPECT_FALSE(permissions.testAnyFlags(QFile::ReadOther | QFile::WriteOther)) << all.filePath().toStdString();
    }
}

#endif

TEST_F(InstallTree, NamesWhatIsInItsWay) {
    write(u"file"_s, "x");
    EXPECT_TRUE(refusal(options(u"file"_s)).contains(platform::native(folder.filePath(u"file"_s))));
    Options no_assets = options();
    no_assets.assets = QStringList{folder.filePath(u"none"_s)};
    EXPECT_TRUE(refusal(no_assets).contains(u"none: no such folder"_s));
    write(u"bin/"_s + rovena, "program");
    const QString program = settings_of(options()).local_root + u"/rovena100/system/exe/exe/"_s + rovena;
    QDir().mkpath(program + u"/held"_s);
    EXPECT_TRUE(refusal(options()).contains(platform::native(program)));
}

TEST_F(InstallTree, PutsWhatTheProgramsNeedBesideEachOfThem) {
    write(u"bin/"_s + rovena, "program");
    write(u"bin/"_s + platform::program_file(u"jyunban.exe"_s), "program");
    write(u"bin/Qt6Core.dll"_s, "library");
    write(u"bin/plugins/platforms/qwindows.dll"_s, "plugin");
    write(u"bin/licenses/a.txt"_s, "terms");
    const Settings settings = run(options());
    for (const QString& part : {settings.local_root + u"/rovena100/system"_s, settings.server_root + u"/comdata"_s}) {
        EXPECT_EQ(support::bytes_of(part + u"/exe/exe/Qt6Core.dll"_s), "library");
        EXPECT_EQ(support::bytes_of(part + u"/exe/exe/plugins/platforms/qwindows.dll"_s), "plugin");
        EXPECT_FALSE(QFile::exists(part + u"/exe/exe/licenses"_s)) << "what nothing needs there";
    }
}

TEST_F(InstallTree, BringsProgramsAndAssetsUpToDateOnEachRun) {
    write(u"bin/"_s + rovena, "old");
    write(u"art/botan/top_ent.BMP"_s, "picture ");
    write(u"art/splash.bmp"_s, "splash ");
    write(u"pages/help/img/a.png"_s, "page");
    QFile::setPermissions(folder.filePath(u"bin/"_s + rovena), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    Options with_assets = options();
    with_assets.assets = QStringList{QDir().relativeFilePath(folder.filePath(u"art"_s)), folder.filePath(u"pages"_s)};
    const QString product = run(with_assets).local_root + u"/rovena100/"_s;
    EXPECT_TRUE(said.contains(u"no "_s + platform::program_file(u"jyusinkanri.exe"_s) + u" beside this program"_s));
    EXPECT_EQ(support::bytes_of(product + u"system/pic/botan/top_ent.BMP"_s) +
                  support::bytes_of(product + u"system/pic/splash.bmp"_s) +
                  support::bytes_of(product + u"help/img/a.png"_s),
        "picture splash page");
    EXPECT_TRUE(QFileInfo(product + u"system/exe/exe/"_s + rovena).isExecutable());

    write(u"bin/"_s + rovena, "new");
    write(u"art/botan/top_ent.BMP"_s, "better");
    run(with_assets);
    EXPECT_EQ(support::bytes_of(product + u"system/exe/exe/"_s + rovena), "new");
    EXPECT_EQ(support::bytes_of(product + u"system/pic/botan/top_ent.BMP"_s), "better");
    EXPECT_EQ(QDir(product + u"system/exe/exe"_s).entryList(QDir::Files), QStringList{rovena});
}

} // namespace install
