#include "exchange/run.h"
#include "exchange_tree.h"
#include "frame/error_list.h"
#include "platform/paths.h"
#include "support/disk.h"

#include <QRegularExpression>
#include <array>

namespace exchange {

namespace {

/// A save of one employee's month, in which every value tells the round it comes from.
Rows month_save(int employee, int round) {
    Rows rows;
    constexpr int dates[]{20041001, 20041032};
    for (const int date : dates)
        rows << day_row(employee, date, u"830 1715 100 %1"_s.arg(round));
    for (const int date : dates)
        for (int category = 1; category <= 8; ++category)
            rows << u"52|%1|%2|%3|%4|8"_s.arg(date).arg(employee).arg(category).arg((round + category) % 5);
    for (int kind = 1; kind <= 10; ++kind)
        rows << u"53|200410|%1|%2|1|%3|0|0"_s.arg(employee).arg(kind).arg((round + kind) % 3);
    for (const int date : dates)
        rows << u"54|%1|%2|%3|公休|0"_s.arg(date).arg(employee).arg((round + date) % 4);
    rows << u"99|%1|%2"_s.arg(round).arg(employee);
    return rows;
}

class Manager : public testing::Test {
protected:
    std::unique_ptr<QProcess> start() const {
        return support::start_program(qEnvironmentVariable("ROVENA_BIN") + u"/jyusinkanri"_s,
            {u"--root"_s, tree.settings.server_root, u"--local"_s, tree.settings.local_root}, environment);
    }
    int run() const { return support::status_of(*start()); }

    QString error_lines() const { return QString::fromUtf8(bytes_of(frame::error_file_path(tree.settings))); }

    static void apply_all(const Tree& other) { EXPECT_TRUE(ManagerRun(other.settings, Watch()).apply_all()); }

    Tree tree;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
};

} // namespace

TEST_F(Manager, AppliesTheRowsAndWritesWhatItCouldNotReadForTheErrorList) {
    tree.post({u"54|20041001|7|3|公休|0"_s, u"52|20041001|7|1|x|8"_s});
    EXPECT_EQ(run(), 0);
    EXPECT_EQ(tree.tables(), "54|7|20041001|3|公休|0||");
    static const QRegularExpression line(
        u"^\"\\d{4}/\\d\\d/\\d\\d \\d\\d:\\d\\d:\\d\\d hanjyusin01\\.mdb 2件目: 時間「x」は数字ではありません\"\n$"_s);
    EXPECT_TRUE(line.match(error_lines()).hasMatch()) << error_lines().toStdString();
}

TEST_F(Manager, EndsWithStatus1AndALineWhereTheTablesAreMissingOrItsLockCannotBeHad) {
    tree.post({u"54|20041001|7|3|公休|0"_s});
    const QString tables = tree.rovdata_path(), lock = store::exchange_folder(tree.settings) + u"/jyusinkanri.lock"_s;
    QFile::rename(tables, tables + u".away"_s);
    EXPECT_EQ(run(), 1);
    EXPECT_TRUE(error_lines().contains(u"rovdata.mdb"_s)) << error_lines().toStdString();
    QFile::rename(tables + u".away"_s, tables);
    QFile::remove(lock);
    QDir().mkpath(lock); // what can't be opened by whomever
    EXPECT_EQ(run(), 1);
    EXPECT_TRUE(error_lines().contains(platform::native(lock))) << error_lines().toStdString();
    QDir().rmdir(lock);
    EXPECT_EQ(run(), 0);
    EXPECT_EQ(tree.tables(), "54|7|20041001|3|公休|0||");
}

TEST_F(Manager, ALineThatErrmsgTxtDidNotTakeIsWrittenByTheNextRun) {
    const QString file = frame::error_file_path(tree.settings);
    QDir().mkpath(file); // what can't be written by whomever
    for (const char* kind : {"98", "99"}) {
        tree.post({QString::fromLatin1(kind)});
        EXPECT_EQ(run(), 0);
    }
    QDir().rmdir(file);
    EXPECT_EQ(run(), 0);
    const QStringList lines = error_lines().split(u'\n');
    ASSERT_EQ(lines.size(), 3) << error_lines().toStdString();
    EXPECT_TRUE(lines[0].contains(u"「98」"_s) && lines[1].contains(u"「99」"_s)) << error_lines().toStdString();
}

#ifdef Q_OS_LINUX
TEST_F(Manager, LinesThatWaitedAreWrittenOnceAlsoWhereTheirFileCannotGo) {
    const QString folder = store::exchange_folder(tree.settings);
    put_bytes(folder + u"/errmsg.txt"_s, "\"waited\"\n");
    put_bytes(folder + u"/errmsg.lock"_s, {});
    QDir().mkpath(QFileInfo(frame::error_file_path(tree.settings)).path());
    ASSERT_EQ(QProcess::execute(u"chmod"_s, {u"-R"_s, u"a+rwX"_s, tree.folder.path()}), 0);
    ASSERT_TRUE(QFile::setPermissions(folder, support::enterable));
    for (int time = 1; time <= 2; ++time) {
        const support::AsNobody nobody;
        frame::write_waiting_errors(tree.settings);
    }
    EXPECT_EQ(error_lines(), u"\"waited\"\n"_s);
}
#endif

TEST_F(Manager, NeedsNoDisplayAndIsNotStoppedByABrokenOne) {
    for (const auto& name : {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s, u"QT_QPA_PLATFORM"_s})
        environment.remove(name);
    EXPECT_EQ(run(), 0);
    environment.insert(u"DISPLAY"_s, u":987"_s);
    environment.insert(u"WAYLAND_DISPLAY"_s, u"nowhere-0"_s);
    EXPECT_EQ(run(), 0);
}

TEST_F(Manager, SeveralAtOnceCountEveryRowOnce) {
    Tree alone;
    std::vector<std::unique_ptr<QProcess>> managers;
    for (int round = 1; round <= 8; ++round) {
        tree.post(month_save(7, round));
        alone.post(month_save(7, round));
        managers.push_back(start());
    }
    for (const auto& manager : managers)
        EXPECT_EQ(support::status_of(*manager), 0);
    apply_all(alone);
    EXPECT_EQ(tree.tables(), alone.tables());
    EXPECT_EQ(tree.errors(tree.exchange_path()), alone.errors(alone.exchange_path()));
}

// Each run is killed one change of a file later than the run before, from its first change to its last, or finds the
// disk full from then on, and the next one finds what it left.
TEST_F(Manager, KilledAtEveryChangeOfAFileOrOnAFullDiskItCountsEveryRowOnce) {
    ROVENA_NEEDS_THE_SHIM;
    std::array<Rows, 2> posted;
    const auto post = [&](int round) {
        // Saves of the same employee in each round, and one that no later round makes good if it is lost.
        const std::array saves{month_save(1, round) + month_save(1000 + round, round), month_save(2000 + round, round)};
        for (size_t i = 0; i < saves.size(); ++i) {
            tree.post(saves[i], int(i) + 1);
            posted[i] += saves[i];
        }
    };
    int round = 0;
    for (const QString& variable : {u"KILL_BEFORE_CHANGE"_s, u"FULL_FROM_CHANGE"_s}) {
        int troubles = 0;
        for (int ended = -1; ended != 0; troubles += ended != 0) {
            post(round++);
            environment = support::shimmed(variable, troubles + 1);
            ended = run();
            apply_all(tree);
        }
        EXPECT_GE(troubles, 100) << variable.toStdString();
    }

    Tree undisturbed;
    for (const int file : {1, 2})
        undisturbed.post(posted[size_t(file) - 1], file);
    apply_all(undisturbed);
    EXPECT_EQ(tree.tables(), undisturbed.tables());
    for (const int file : {1, 2}) {
        EXPECT_EQ(tree.left(file), "");
        const auto reasons = [file](const Tree& of) { return of.errors(of.exchange_path(file)); };
        EXPECT_EQ(reasons(tree), reasons(undisturbed));
    }
}

} // namespace exchange
