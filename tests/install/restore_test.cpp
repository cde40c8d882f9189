#include "install/restore.h"

#include "frame/backup.h"
#include "install/company.h"
#include "platform/program_lock.h"
#include "store/held.h"
#include "store/server_place.h"
#include "store/setting_tables.h"
#include "support/disk.h"
#include "support/fake_host.h"
#include "support/killed.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#ifdef Q_OS_LINUX
#include <sys/stat.h>
#endif

namespace install {

/// A made-up company that has been backed up once.
class RestoredCompany : public testing::Test {
protected:
    RestoredCompany() {
        show_root(settings.server_root);
        support::FakeHost host;
        frame::バックアップ処理(settings, host);
        backup = frame::shared_backup_folder(settings, host.clock.date());
        rows = all_rows(settings);
    }

    void show_root(const QString& root) { SettingTables(settings).設定書込(u"losystem"_s, u"サーバーＰＣ"_s, root); }
    static QStringList shown_root(const base::Settings& pc) {
        return rows_of(losys_path(pc), Kind::Losys, "select データ from losystem where 項目名='サーバーＰＣ'");
    }

    base::Settings restore(const QString& root) {
        said.clear();
        restore_backup(
            {backup, folder.filePath(root)}, time, [this](const QString& line) { said << line; },
            std::chrono::milliseconds(50));
        Options options;
        options.root = folder.filePath(root);
        return settings_of(options);
    }

    QString refusal() {
        try {
            restore(u"first"_s);
        } catch (const std::exception& error) {
            return QString::fromUtf8(error.what());
        }
        return {};
    }

    /// A copy in the backup, whichever form it has.
    QString copy(const QString& name) const {
        const QString dump = u"%1/%2.dump"_s.arg(backup, name);
        return QFileInfo::exists(dump) ? dump : u"%1/%2.mdb"_s.arg(backup, name);
    }

    void change() const {
        Database::open(rovdata_path(settings), Kind::Rovdata).exec("delete from rovmei");
        Database::open(comsys_path(settings), Kind::Comsys).exec("delete from syain");
    }

    int run(const QStringList& arguments,
        const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment()) const {
        return support::status_of(*support::start_program(qEnvironmentVariable("ROVENA_BIN") + u"/rovena-install"_s,
            QStringList{u"restore"_s} + arguments, environment));
    }

    QTemporaryDir folder{support::fast_place() + u"/restore-XXXXXX"_s};
    base::Settings settings = make_company(folder.filePath(u"first"_s), {4, 2, 202611});
    QString backup;
    QStringList rows, said;
    const QDateTime time{QDate(2026, 11, 24), QTime(21, 34, 5)};
};

TEST_F(RestoredCompany, IsTheSameUnderASecondRootAndItsProgramLooksThere) {
    const base::Settings second = restore(u"second"_s);
    EXPECT_TRUE(all_rows(second) == rows);
    EXPECT_TRUE(said.contains(u"  employees 4, months 2 (202610 to 202611)"_s)) << said.join(u'\n').toStdString();
    EXPECT_TRUE(said.contains(u"  kinsyu       5"_s));
    EXPECT_EQ(shown_root(second), QStringList{second.server_root});
}

TEST_F(RestoredCompany, IsToldToBeMixedWhereItsFilesAreOfDifferentTimes) {
    const auto mixed = [this] { return !said.filter(u"don't come from one backup"_s).isEmpty(); };
    restore(u"second"_s);
    EXPECT_FALSE(mixed());
    QFile file(copy(u"comsys"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.setFileTime(QDateTime::currentDateTime().addDays(-7), QFileDevice::FileModificationTime);
    file.close();
    restore(u"third"_s);
    EXPECT_TRUE(mixed());
}

TEST_F(RestoredCompany, ComesFromABackupThatWasKilledAmongItsLastRenames) {
    QByteArray list;
    for (const QString& name : {u"rovdata"_s, u"comsys"_s, u"allsystem"_s})
        list += u"%1 %1.7.new\n"_s.arg(QFileInfo(copy(name)).fileName()).toUtf8();
    support::put_bytes(backup + u"/generation.list"_s, list);
    ASSERT_TRUE(QFile::rename(copy(u"comsys"_s), copy(u"comsys"_s) + u".7.new"_s));
    for (const QString& of_last_week : {u"comsys.mdb"_s, u"losys.mdb"_s})
        support::put_bytes(backup + u'/' + of_last_week, "no part of it");
    EXPECT_TRUE(all_rows(restore(u"second"_s)) == rows);
}

TEST_F(RestoredCompany, KeepsThePresentFilesBeside) {
    change();
    const QStringList changed = all_rows(rovdata_path(settings), Kind::Rovdata);
    restore(u"first"_s);
    EXPECT_TRUE(all_rows(settings) == rows);
    EXPECT_EQ(all_rows(data_folder(settings) + u"/rovdata-20261124-213405.mdb"_s, Kind::Rovdata), changed);
    change();
    restore(u"first"_s);
    EXPECT_TRUE(QFileInfo::exists(data_folder(settings) + u"/rovdata-20261124-213406.mdb"_s)) << "both stay";
}

TEST_F(RestoredCompany, ComesBackAfterADamagedFileAndAJournalThatIsNotItsOwn) {
    const QString path = comsys_path(settings);
    support::put_bytes(path, QByteArray(700, 'x'));
    support::put_bytes(path + u"-journal"_s, QByteArray(20'000, 'x'));
    restore(u"first"_s);
    EXPECT_TRUE(all_rows(settings) == rows);
    EXPECT_FALSE(QFileInfo::exists(path + u"-journal"_s));
    QString kept = path;
    kept.replace(u".mdb"_s, u"-20261124-213405.mdb"_s);
    EXPECT_EQ(QFileInfo(kept).size(), 700);
    EXPECT_EQ(QFileInfo(kept + u"-journal"_s).size(), 20'000);
}

TEST_F(RestoredCompany, GivesItsSettingsBackToAPcThatWorksOnTheDataOfAnother) {
    for (const auto& [kind, path] : shared_files)
        QFile::remove(path(settings));
    show_root(u"//main/qn"_s);
    settings.use_class = 2;
    support::FakeHost host;
    frame::バックアップ処理(settings, host);
    backup = frame::local_backup_folder(settings, host.clock.date());
    for (const QString& present : {u"//main/qn"_s, QString()}) {
        show_root(present);
        restore(u"first"_s);
        EXPECT_EQ(shown_root(settings), QStringList{u"//main/qn"_s});
    }
}

TEST_F(RestoredCompany, IsNotTouchedWhereAProgramIsOpenOrTheBackupIsNotInOrder) {
    change();
    const QStringList changed = all_rows(settings);
    {
        platform::ProgramLock program(data_folder(settings), u"rovena"_s);
        ASSERT_TRUE(program.share(std::chrono::milliseconds(0)));
        EXPECT_TRUE(refusal().contains(u"開いています"_s));
    }
    {
        Database writer = Database::open(comsys_path(settings), Kind::Comsys);
        const Transaction writing(writer);
        EXPECT_TRUE(refusal().contains(store::place_at(comsys_path(settings)) ? u"開いています"_s : u"書き込み中"_s));
    }
    show_root(u"//main/qn"_s);
    EXPECT_TRUE(refusal().contains(u"//main/qn"_s));
    show_root(settings.server_root);

    const QString damaged = copy(u"comsys"_s);
    const QByteArray bytes = support::bytes_of(damaged);
    support::put_bytes(damaged, damaged.endsWith(u".mdb"_s) ? QByteArray(bytes).replace(4096 * 3 + 9, 1, "x")
                                                            : bytes.first(bytes.size() * 9 / 10));
    EXPECT_TRUE(refusal().contains(u"not in order"_s));
    EXPECT_EQ(run({backup, u"--list"_s}), 1);
    QFile::remove(damaged);
    EXPECT_TRUE(refusal().contains(u"is missing"_s));
    EXPECT_TRUE(all_rows(settings) == changed);
    EXPECT_EQ(run({folder.path(), u"--list"_s}), 1) << "no backup";
    EXPECT_EQ(QDir(data_folder(settings)).entryList({u"rovdata*"_s}), QStringList{u"rovdata.mdb"_s});
}

TEST_F(RestoredCompany, ListingChangesNothing) {
    change();
    const QStringList changed = all_rows(settings);
    for (const QStringList& root : {QStringList(), {folder.filePath(u"first"_s)}})
        EXPECT_EQ(run(QStringList{backup, u"--list"_s} + root), 0);
    EXPECT_TRUE(all_rows(settings) == changed);
    EXPECT_EQ(run({backup}), 2) << "no root";
}

#ifdef Q_OS_LINUX

TEST_F(RestoredCompany, BelongsToWhomThePresentFilesBelongedTo) {
    const QByteArray path = QFile::encodeName(comsys_path(settings));
    const bool administrator = geteuid() == 0;
    const uid_t owner = administrator ? 1234 : geteuid();
    const gid_t group = administrator ? 2345 : getegid();
    ASSERT_TRUE(chown(path.constData(), owner, group) == 0 && chmod(path.constData(), 0660) == 0);
    restore(u"first"_s);
    struct stat now {};
    ASSERT_EQ(stat(path.constData(), &now), 0);
    EXPECT_EQ(now.st_uid, owner);
    EXPECT_EQ(now.st_gid, group);
    EXPECT_EQ(now.st_mode & 0777, 0660U);
}

TEST_F(RestoredCompany, IsNotTakenFromItsPeopleByAnotherAndStaysOpenToEverybodyWhereItWas) {
    if (geteuid() != 0)
        GTEST_SKIP() << "files of another person need the administrator";
    const auto refusal_of_another = [this] {
        const support::AsNobody nobody;
        return refusal();
    };
    ASSERT_EQ(QProcess::execute(u"chgrp"_s, {u"-R"_s, u"2345"_s, folder.path()}), 0);
    ASSERT_EQ(QProcess::execute(u"chmod"_s, {u"-R"_s, u"a+rwX"_s, folder.path()}), 0);
    QFile::setPermissions(comsys_path(settings), QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_TRUE(refusal_of_another().contains(u"belongs to"_s));
    EXPECT_TRUE(all_rows(settings) == rows);
    QFile::setPermissions(comsys_path(settings), QFile::Permissions(0x6666));
    EXPECT_EQ(refusal_of_another(), QString());
    EXPECT_TRUE(QFileInfo(comsys_path(settings)).permission(QFile::WriteOther | QFile::WriteGroup))
        << "its group cannot be given";
}

#endif

TEST_F(RestoredCompany, StaysAsItIsWhereTheDiskLosesPartOfACopyWithoutAWord) {
    ROVENA_NEEDS_THE_SHIM;
    change();
    const QStringList changed = all_rows(settings);
    for (const int database : {1, 2, 3, 4}) {
        EXPECT_EQ(run({backup, folder.filePath(u"first"_s)}, support::shimmed(u"LOSE_WRITE_OF_COPY"_s, database)), 1);
        EXPECT_TRUE(all_rows(settings) == changed) << database;
    }
}

// Each restore is killed one change of a file later than the one before.
TEST_F(RestoredCompany, IsWholeAfterARestoreThatIsKilledAtAnyChangeOfAFile) {
    ROVENA_NEEDS_THE_SHIM;
    change();
    std::array<QStringList, std::size(shared_files)> changed;
    for (size_t i = 0; i < changed.size(); ++i)
        changed[i] = all_rows(shared_files[i].path(settings), shared_files[i].kind);
    int kills = 0, status = -1;
    for (; (status = run({backup, folder.filePath(u"first"_s)}, support::killed_before_change(kills + 1))) == -1;
         ++kills) {
        for (size_t i = 0; i < changed.size(); ++i) {
            const auto& [kind, path] = shared_files[i];
            open_checked(path(settings), kind);
            const QStringList now = all_rows(path(settings), kind);
            EXPECT_TRUE(now == changed[i] || rows.join(u'\n').contains(now.join(u'\n'))) << i << " kill " << kills;
        }
        open_checked(losys_path(settings), Kind::Losys);
    }
    EXPECT_EQ(status, 0);
    EXPECT_GE(kills, 20);
    EXPECT_TRUE(all_rows(settings) == rows);
}

} // namespace install
