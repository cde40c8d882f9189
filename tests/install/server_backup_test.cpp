// The backup of a company on a server. Needs one (scripts/with-server).

#include "company.h"
#include "frame/backup.h"
#include "install/restore.h"
#include "store/dump.h"
#include "store/setting_tables.h"
#include "support/data_server.h"
#include "support/fake_host.h"

#include <QDir>
#include <QTemporaryDir>
#include <csignal>

namespace install {

class ServerBackup : public testing::Test {
protected:
    void SetUp() override {
        if (support::data_server().isEmpty())
            GTEST_SKIP() << "no server";
        Database::open(rovdata_path(settings), Kind::Rovdata)
            .exec("insert into rovmei (社員システム番号, 出社日, 備考) values (1, 20300101, 'a\\n\\.\tb\n\\.\nc'),"
                  " (1, 20300102, ''), (1, 20300103, null)");
        rows = all_rows(settings);
    }

    QStringList back_up() {
        frame::バックアップ処理(settings, host);
        return QDir(folder_of_backup()).entryList(QDir::Files);
    }
    QString folder_of_backup() const { return frame::shared_backup_folder(settings, host.clock.date()); }

    /// Into files, in a tree of its own.
    QStringList restored(const QString& root) const {
        restore_backup({folder_of_backup(), folder.filePath(root)}, host.clock, [](const QString&) {});
        Options options;
        options.root = folder.filePath(root);
        EXPECT_FALSE(place_at(rovdata_path(settings_of(options))));
        return all_rows(settings_of(options));
    }

    QString shown() const {
        QStringList texts;
        for (const support::Shown& one : host.shown)
            texts << one.text;
        return texts.join(u'\n');
    }

    QTemporaryDir folder;
    base::Settings settings = make_company(folder.filePath(u"first"_s), {3, 1, 202611});
    support::FakeHost host;
    QStringList rows;
};

TEST_F(ServerBackup, IsADumpThatAClerkMakesToo) {
    support::psql(u"create role suzuki login in role rovena_clerk"_s);
    for (const auto& [kind, path] : shared_files) {
        const auto place = place_at(path(settings)).value();
        support::put_bytes(path(settings), bytes_of(ServerPlace{place.connection + " user=suzuki", place.schema}));
    }
    const QStringList dumps{u"allsystem.dump"_s, u"comsys.dump"_s, u"losys.mdb"_s, u"rovdata.dump"_s};
    EXPECT_EQ(back_up(), dumps) << shown().toStdString();
    EXPECT_EQ(shown(), u"バックアップしますか？"_s);
    EXPECT_TRUE(restored(u"second"_s) == rows);

    Held now(rovdata_path(settings), Kind::Rovdata);
    EXPECT_NO_THROW(check_dump(folder_of_backup() + u"/rovdata.dump"_s, Kind::Rovdata, now));
    support::psql(
        u"update \"%1\".rovmei set 備考='x' where 出社日=20300102"_s.arg(place_at(rovdata_path(settings))->schema));
    EXPECT_THROW(check_dump(folder_of_backup() + u"/rovdata.dump"_s, Kind::Rovdata, now), store::Error);

    const QString path = rovdata_path(settings);
    const QByteArray away = bytes_of(ServerPlace{"host=/nowhere", place_at(path)->schema});
    support::put_bytes(path, away);
    EXPECT_THROW(restored(u"first"_s), store::Error);
    EXPECT_EQ(support::bytes_of(path), away) << "no file beside what the server has";
}

TEST_F(ServerBackup, IsAFileWithoutTheServersToolsAndSaysThatThereIsAnotherBackup) {
    Options given;
    given.root = folder.filePath(u"first"_s);
    given.server_backup = u"1"_s;
    run(given, given.root, [](const QString&) {});
    rows = all_rows(settings);
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", "/nowhere");
    const QStringList files = back_up();
    qputenv("PATH", path);
    EXPECT_EQ(files.filter(u".mdb"_s).size(), 4);
    EXPECT_TRUE(shown().startsWith(u"バックアップしますか？\n\nサーバーのデータは、別の方法で"_s));
    EXPECT_TRUE(shown().contains(u"pg_dump が見つからない"_s));
    EXPECT_TRUE(restored(u"second"_s) == rows);
}

#ifndef Q_OS_WIN // the tool is a script
TEST_F(ServerBackup, GivesUpAToolThatStallsAndNobodyWaitsFurther) {
    const QString path = rovdata_path(settings), target = folder.filePath(u"rovdata.dump"_s);
    const auto given_up = [&](const QString& tool, const QByteArray& does) {
        const QString program = folder.filePath(tool), number = folder.filePath(u"number"_s);
        support::put_bytes(
            program, "#!/bin/sh\necho $$ >" + QFile::encodeName(number) + '\n' + does + "\nexec sleep 1000");
        QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner);
        const QByteArray usual = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(folder.path()) + ':' + usual);
        try {
            const Held held(path, Kind::Rovdata);
            tool == u"pg_dump"
                ? dump_into(held, target, std::chrono::milliseconds(1000))
                : file_of_dump(target, Kind::Rovdata, folder.filePath(u"copy.mdb"_s), std::chrono::milliseconds(1000));
            ADD_FAILURE() << tool.toStdString();
        } catch (const store::Error& error) {
            EXPECT_EQ(error.code(), Code::Io) << error.what();
            EXPECT_TRUE(error.text().contains(tool + u" から "_s)) << error.what();
        }
        qputenv("PATH", usual);
        EXPECT_EQ(::kill(support::bytes_of(number).trimmed().toInt(), 0), -1) << "it goes on";
    };
    given_up(u"pg_dump"_s, "echo begun >&2");
    given_up(u"pg_restore"_s, "echo COPY rovdata.kinsyu '(rowid, a) FROM stdin;'; printf half");
    Database::open(path, Kind::Rovdata, std::chrono::milliseconds(1)).exec("delete from kinsyu");
}
#endif

} // namespace install
