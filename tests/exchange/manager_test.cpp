#include "exchange/run.h"
#include "exchange_tree.h"
#include "platform/program_lock.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QThread>
#include <memory>

namespace exchange {

namespace {

/// A save of one employee's month, in which every value tells the round it comes from.
Rows month_save(int employee, int round) {
    Rows rows;
    const auto dates = [](const auto& add) {
        for (int day = 1; day <= 32; ++day)
            add(20041000 + day);
    };
    dates([&](int date) { rows << day_row(employee, date, u"830 1715 100 %1"_s.arg(round)); });
    dates([&](int date) {
        for (int category = 1; category <= 8; ++category)
            rows << u"52|%1|%2|%3|%4|8"_s.arg(date).arg(employee).arg(category).arg((round + category) % 5);
    });
    for (int kind = 1; kind <= 10; ++kind)
        rows << u"53|200410|%1|%2|1|%3|0|0"_s.arg(employee).arg(kind).arg((round + kind) % 3);
    dates([&](int date) { rows << u"54|%1|%2|%3|公休|0"_s.arg(date).arg(employee).arg((round + date) % 4); });
    rows << u"99|%1|%2"_s.arg(round).arg(employee);
    return rows;
}

class Manager : public testing::Test {
protected:
    static QString program() { return qEnvironmentVariable("ROVENA_BIN") + u"/jyusinkanri"_s; }
    QStringList arguments() const {
        return {u"--root"_s, tree.settings.server_root, u"--local"_s, tree.settings.local_root};
    }

    std::unique_ptr<QProcess> start(
        const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment()) const {
        auto process = std::make_unique<QProcess>();
        process->setProcessEnvironment(environment);
        process->setStandardErrorFile(QProcess::nullDevice());
        process->start(program(), arguments());
        EXPECT_TRUE(process->waitForStarted());
        return process;
    }

    int run() const {
        const auto process = start();
        process->waitForFinished(60'000);
        return process->exitStatus() == QProcess::NormalExit ? process->exitCode() : -1;
    }

    QString error_lines() const {
        return QString::fromUtf8(content(tree.settings.local_root + u"/rovena100/data/trn/errmsg.txt"_s));
    }

    static void apply_undisturbed(const Tree& other) { EXPECT_TRUE(ManagerRun(other.settings, Watch()).apply_all()); }

    Tree tree;
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

TEST_F(Manager, EndsWithStatus1AndALineWhereTheTablesAreMissing) {
    QFile::remove(tree.rovdata_path());
    tree.post({u"54|20041001|7|3|公休|0"_s});
    EXPECT_EQ(run(), 1);
    EXPECT_NE(tree.left(), "");
    EXPECT_TRUE(error_lines().contains(u"rovdata.mdb"_s)) << error_lines().toStdString();
}

TEST_F(Manager, NeedsNoDisplayAndIsNotStoppedByABrokenOne) {
    auto none = QProcessEnvironment::systemEnvironment();
    for (const auto& name : {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s, u"QT_QPA_PLATFORM"_s})
        none.remove(name);
    auto x = none, wayland = none;
    x.insert(u"DISPLAY"_s, u":987"_s);
    wayland.insert(u"WAYLAND_DISPLAY"_s, u"nowhere-0"_s);
    int date = 20041001;
    for (const auto& environment : {none, x, wayland}) {
        tree.post({u"54|%1|7|3|公休|0"_s.arg(date++)});
        const auto process = start(environment);
        EXPECT_TRUE(process->waitForFinished(60'000));
        EXPECT_EQ(process->exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process->exitCode(), 0);
        EXPECT_EQ(tree.left(), "");
    }
}

TEST_F(Manager, SeveralAtOnceCountEveryRowOnce) {
    Tree alone;
    std::vector<std::unique_ptr<QProcess>> managers;
    for (int round = 1; round <= 8; ++round) {
        tree.post(month_save(7, round));
        alone.post(month_save(7, round));
        managers.push_back(start());
    }
    for (const auto& manager : managers) {
        EXPECT_TRUE(manager->waitForFinished(60'000));
        EXPECT_EQ(manager->exitCode(), 0);
    }
    apply_undisturbed(alone);
    EXPECT_EQ(tree.tables(), alone.tables());
    EXPECT_EQ(tree.errors(tree.exchange_path()), alone.errors(alone.exchange_path()));
    EXPECT_EQ(tree.left(), "");
}

// The kills come later and later into the work, so that they meet both transactions, and what lies between.
TEST_F(Manager, KilledHundredTimesWhileApplyingItCountsEveryRowOnce) {
    constexpr int kills = 100, employees = 10;
    Tree alone;
    const auto post = [&](int round) {
        Rows rows;
        for (int employee = 1; employee <= employees; ++employee)
            rows += month_save(employee, round);
        for (const int file : {1, 2}) {
            tree.post(rows, file);
            alone.post(rows, file);
        }
    };
    const auto start_of_work = [this](QProcess& manager) {
        while (!platform::ProgramLock::held(store::exchange_folder(tree.settings), u"jyusinkanri"_s))
            ASSERT_FALSE(manager.waitForFinished(0));
    };
    post(0);
    const auto first = start();
    start_of_work(*first);
    QElapsedTimer time;
    time.start();
    first->waitForFinished();
    const qint64 work = time.nsecsElapsed() / 1000;

    int interrupted = 0;
    for (int kill = 1; kill <= kills; ++kill) {
        if (tree.left(1).empty() && tree.left(2).empty())
            post(kill);
        const auto manager = start();
        start_of_work(*manager);
        QThread::usleep(static_cast<unsigned long>(work * (kill % 25) / 25));
        manager->kill();
        manager->waitForFinished();
        interrupted += manager->exitStatus() == QProcess::CrashExit;
    }
    EXPECT_GE(interrupted, kills / 2);
    EXPECT_EQ(run(), 0);
    apply_undisturbed(alone);
    EXPECT_EQ(tree.tables(), alone.tables());
    for (const int file : {1, 2}) {
        EXPECT_EQ(tree.left(file), "");
        EXPECT_EQ(tree.errors(tree.exchange_path(file)), alone.errors(alone.exchange_path(file)));
    }
}

} // namespace exchange
