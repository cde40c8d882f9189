#include "frame/backup.h"

#include "backup_tree.h"
#include "platform/file_set.h"
#include "support/disk.h"
#include "support/fake_host.h"
#include "support/killed.h"
#include "support/stored.h"

#include <gtest/gtest.h>

using namespace base;
using namespace std::chrono_literals;
using platform::Answer;
using store::Database;
using store::Kind;

const QStringList all_files{u"allsystem.mdb"_s, u"comsys.mdb"_s, u"losys.mdb"_s, u"rovdata.mdb"_s};

class Backup : public testing::Test {
protected:
    Backup() {
        for (const auto& live : live_files)
            tree.save(live, 1);
    }

    void run() { frame::バックアップ処理(tree.settings, host, {}, 50ms); }

    QString shared() const { return frame::shared_backup_folder(tree.settings, host.clock.date()); }
    QString local() const { return frame::local_backup_folder(tree.settings, host.clock.date()); }
    static QStringList files(const QString& folder) { return QDir(folder).entryList(QDir::Files | QDir::Hidden); }

    std::string in_backup(size_t i) const {
        const QString file = platform::file_of_set(shared(), QFileInfo(live_files[i].path).fileName());
        return file.isEmpty() ? "none" : tree.saved(live_files[i], file);
    }
    void expect_in_backup(const std::string& saved) const {
        for (size_t i = 0; i < live_files.size(); ++i)
            EXPECT_EQ(in_backup(i), saved) << i;
    }
    void expect_live(const std::string& saved) const {
        for (const auto& live : live_files)
            EXPECT_EQ(tree.saved(live), saved) << live.path.toStdString();
    }

#ifdef Q_OS_LINUX
    void open_to_all() const {
        QFile::setPermissions(tree.folder.path(), support::enterable);
        for (const auto& live : live_files) {
            const auto all = support::enterable | QFile::WriteOwner | QFile::WriteOther;
            QFile::setPermissions(live.path, all);
            QFile::setPermissions(QFileInfo(live.path).path(), all);
        }
    }
#endif

    int run_child(const QProcessEnvironment& environment) const {
        return support::status_of(*support::start_child({u"backup"_s, tree.folder.path()}, environment));
    }

    BackupTree tree;
    const std::array<BackupTree::Live, 4> live_files = BackupTree::live_files(tree.settings);
    support::FakeHost host;
    const support::Shown question{u"バックアップしますか？"_s, u"バックアップ"_s, platform::Buttons::YesNo};
};

TEST_F(Backup, YesKeepsAGenerationAndCompactsTheLiveFiles) {
    const qint64 before = QFileInfo(live_files[0].path).size();
    QStringList progress;
    frame::バックアップ処理(tree.settings, host, [&](const QString& text, frame::StepsDone steps) {
        progress << u"%1 %2/%3"_s.arg(text).arg(steps.done).arg(steps.of);
    });
    EXPECT_EQ(host.shown, std::vector{question});
    EXPECT_TRUE(shared().endsWith(u"/comdata/data/bk/3"_s)) << "a Tuesday";
    EXPECT_EQ(files(shared()), all_files);
    EXPECT_EQ(files(local()), QStringList{u"losys.mdb"_s});
    expect_in_backup("1 rows, 1 in all");
    expect_live("1 rows, 1 in all");
    EXPECT_LT(QFileInfo(live_files[0].path).size(), before);
    EXPECT_EQ(tree.saved(live_files[3], local() + u"/losys.mdb"_s), "1 rows, 1 in all");
    EXPECT_EQ(progress.first(), u"バックアップ中... rovdata.mdb 0/8"_s);
    EXPECT_EQ(progress.last(), u"バックアップ中... losys.mdb 7/8"_s);
}

TEST_F(Backup, TheSharedDataIsLeftAloneOnNoAndOnAPcThatMayNot) {
    const struct {
        int use_class;
        Answer answer;
        bool asked;
    } cases[]{{0, Answer::No, true}, {1, Answer::No, true}, {2, Answer::Yes, false}};
    for (const auto& c : cases) {
        QDir(local()).removeRecursively();
        host.shown.clear();
        host.answers = {c.answer};
        tree.settings.use_class = c.use_class;
        run();
        EXPECT_EQ(host.shown, c.asked ? std::vector{question} : std::vector<support::Shown>()) << c.use_class;
        EXPECT_FALSE(QFileInfo::exists(shared())) << c.use_class;
        EXPECT_EQ(files(local()), QStringList{u"losys.mdb"_s}) << c.use_class;
    }
}

TEST_F(Backup, TheSameWeekdayAWeekLaterTakesThePlaceOfTheFolder) {
    run();
    support::put_bytes(shared() + u"/old.mdb"_s, "of another version");
    tree.save(live_files[0], 2);
    host.clock = host.clock.addDays(7);
    run();
    EXPECT_EQ(files(shared()), all_files);
    EXPECT_EQ(in_backup(0), "2 rows, 3 in all");
    host.clock = QDateTime(QDate(2004, 10, 10), QTime(9, 0));
    EXPECT_TRUE(shared().endsWith(u"/1"_s)) << "a Sunday";
    EXPECT_TRUE(local().endsWith(u"/rovena100/data/bk/1"_s));
}

TEST_F(Backup, WithDataOnAShareItStillGoesToThisPcsOwnDrive) {
    QTemporaryDir drive;
    tree.settings.install_drive = drive.path();
    const QString own = platform::install_root(drive.path());
    QDir().mkpath(own + u"/rovena100/data/system"_s);
    QFile::copy(store::losys_path(tree.settings), own + u"/rovena100/data/system/losys.mdb"_s);
    run();
    EXPECT_EQ(host.shown, std::vector{question});
    EXPECT_EQ(files(own + u"/comdata/data/bk/3"_s), all_files);
    EXPECT_EQ(files(own + u"/rovena100/data/bk/3"_s), QStringList{u"losys.mdb"_s});
    QFile::remove(live_files[3].path);
    run();
    EXPECT_EQ(host.shown, std::vector(2, question)) << "a disk of the network has no settings of a PC";
    EXPECT_EQ(files(own + u"/comdata/data/bk/3"_s).size(), 3);
}

TEST_F(Backup, AWholeOldGenerationStaysWhenANewOneCannotBeMade) {
    run();
    for (const auto& live : live_files)
        tree.save(live, 2);
    const auto fails_with = [&](const QString& text) {
        host.shown.clear();
        run();
        ASSERT_GE(host.shown.size(), 2U);
        EXPECT_TRUE(host.shown[1].text.startsWith(u"バックアップできませんでした。"_s));
        EXPECT_TRUE(host.shown[1].text.contains(text)) << host.shown[1].text.toStdString();
        EXPECT_EQ(files(shared()), all_files);
        expect_in_backup("1 rows, 1 in all");
    };
    {
        Database writer = Database::open(live_files[2].path, Kind::Allsystem);
        const store::Transaction writing(writer);
        fails_with(u"書き込み中です"_s);
    }
    expect_live("2 rows, 3 in all");

    QFile damaged(live_files[1].path);
    ASSERT_TRUE(damaged.open(QIODevice::ReadWrite) && damaged.seek(4096 * 5 + 100) && damaged.write("x") == 1);
    damaged.close();
    fails_with(u"comsys.mdb"_s);
    EXPECT_EQ(tree.saved(live_files[0]), "2 rows, 3 in all");
    QFile::remove(live_files[1].path);
    fails_with(u"データベースがありません"_s);
}

TEST_F(Backup, AReaderThatDoesNotEndOnlyKeepsItsFileFromBeingCompacted) {
    const qint64 before = QFileInfo(live_files[0].path).size();
    Database reader = Database::open(live_files[0].path, Kind::Rovdata);
    const store::Transaction reading(reader, store::Transaction::Lock::Read);
    store::row_counts(reader);
    run();
    ASSERT_EQ(host.shown.size(), 2U);
    EXPECT_TRUE(host.shown[1].text.startsWith(u"バックアップはできましたが"_s)) << host.shown[1].text.toStdString();
    expect_in_backup("1 rows, 1 in all");
    EXPECT_EQ(QFileInfo(live_files[0].path).size(), before);
}

#ifdef Q_OS_LINUX

TEST_F(Backup, AFullDiskAndAReadOnlyFolderAreToldAndChangeNothing) {
    QDir().mkpath(shared());
    {
        const support::SmallDisk disk(shared());
        if (!disk.mounted)
            GTEST_SKIP() << "a disk of its own needs the administrator";
        support::put_bytes(shared() + u"/rest"_s, QByteArray(100'000, 'x'));
        run();
        EXPECT_EQ(files(shared()), QStringList{u"rest"_s}) << "nothing half made stays";
    }
    ASSERT_EQ(host.shown.size(), 2U);
    EXPECT_TRUE(host.shown[1].text.contains(u"ディスクの空き容量が足りません。\n"_s + shared()))
        << host.shown[1].text.toStdString();
    for (const QString& folder : {shared(), QFileInfo(local()).path()})
        QFile::setPermissions(folder, support::enterable);
    host.shown.clear();
    QDir(local()).removeRecursively();
    {
        open_to_all();
        const support::AsNobody nobody;
        run();
    }
    ASSERT_EQ(host.shown.size(), 3U);
    for (const size_t i : {1U, 2U})
        EXPECT_TRUE(host.shown[i].text.contains(u"読み取り専用"_s)) << host.shown[i].text.toStdString();
    expect_live("1 rows, 1 in all");
}

TEST_F(Backup, ADiskThatLosesAPageWithoutAWordSpoilsNoGeneration) {
    run();
    for (const auto& live : live_files)
        tree.save(live, 2);
    for (const int page : {1, 10, 25}) {
        run_child(support::shimmed(u"LOSE_WRITE_OF_COPY"_s, page));
        expect_in_backup("1 rows, 1 in all");
        expect_live("2 rows, 3 in all");
    }
}

// Each backup is killed one change of a file later than the one before, from its first change to its last.
TEST_F(Backup, KilledAtEveryChangeOfAFileItLosesNothing) {
    int kills = 0, cut_short = 0;
    int sum = 1;
    for (bool killed = true; killed; kills += killed) {
        const int status = run_child(support::killed_before_change(kills + 1));
        killed = status == -1;
        cut_short += std::ranges::any_of(
            live_files, [](const auto& live) { return QFileInfo(live.path + u"-journal"_s).size() > 0; });
        const std::string saved = tree.rows(kills + 1, sum);
        expect_live(saved);
        expect_in_backup(in_backup(0));
        if (!killed) {
            EXPECT_EQ(status, 0);
            expect_in_backup(saved);
            EXPECT_EQ(files(shared()), all_files);
        }
        ASSERT_FALSE(HasFailure()) << "after kill " << kills;
        for (const auto& live : live_files)
            tree.save(live, kills + 2);
        sum += kills + 2;
    }
    EXPECT_GE(kills, 200);
    EXPECT_GE(cut_short, 20) << "kills while a live file was written";
    RecordProperty("kills", kills);
}

#endif

TEST_F(Backup, WhatTwoProgramsSaveMeanwhileIsThere) {
    constexpr int each = 150;
    std::vector<std::unique_ptr<QProcess>> savers;
    for (int saver = 0; saver < 2; ++saver)
        for (const int file : {0, 1})
            savers.push_back(support::start_child({u"save"_s, tree.folder.path(), QString::number(file),
                QString::number(1000 * (saver + 1)), QString::number(each)}));
    const auto at_work = [&] {
        return std::ranges::any_of(savers, [](const auto& saver) {
            saver->waitForFinished(0);
            return saver->state() != QProcess::NotRunning;
        });
    };
    int backups = 0;
    for (; at_work(); ++backups)
        frame::バックアップ処理(tree.settings, host);
    EXPECT_GE(backups, 2);
    for (const auto& saver : savers)
        EXPECT_EQ(saver->exitCode(), 0);
    const std::string all = tree.rows(2 * each + 1, 1 + each * 3000 + each * (each - 1));
    EXPECT_EQ(tree.saved(live_files[0]), all);
    EXPECT_EQ(tree.saved(live_files[1]), all);
}
