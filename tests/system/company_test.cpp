// A company at work: three PCs of different use classes on one shared folder, the turn service and the exchange
// manager, all as real processes, and any of them killed at random moments. In the end every day whose save was
// confirmed stands in the tables once, as it was saved last (saves.h), sums and counts are those of the days, and every
// file is whole. With a data server at hand (scripts/with-server) each PC has a tree of its own instead, and it is the
// server that is killed.
//
// ROVENA_SYSTEM_SECONDS sets how long they work, ROVENA_SYSTEM_SEED what they type and when they are killed.

#include "base/literals.h"
#include "base/numbers.h"
#include "clerk_at_work.h"
#include "e2e/road/files.h"
#include "platform/program_lock.h"
#include "saves.h"
#include "store/database.h"
#include "store/files.h"
#include "support/data_server.h"
#include "support/stored.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QSysInfo>
#include <QTemporaryDir>
#include <QTest>
#include <array>
#include <csignal>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <random>
#include <set>

using namespace base;
using whole::Day, whole::Save;

namespace {

const QString bin = qEnvironmentVariable("ROVENA_BIN", u"."_s);
constexpr int shared_row = 4;    ///< row of the employee that every clerk works on, and its system number
constexpr int seeds_apart = 100; ///< of two PCs; one that is started anew takes the next

/// A clerk's process, which is started anew whenever it was killed, and what it said about its saves.
class Pc {
public:
    explicit Pc(whole::PlaceOfWork place) : m_place(std::move(place)) { start(); }
    ~Pc() { m_process.kill(), m_process.waitForFinished(); }

    void listen(int milliseconds) {
        m_process.waitForReadyRead(milliseconds);
        while (m_process.canReadLine())
            hear(m_process.readLine().trimmed().split(' '));
    }
    void kill_and_start(int seconds_left) {
        m_process.kill();
        end();
        m_place.seconds = seconds_left;
        ++m_place.seed;
        start();
    }
    /// Whether it ended of its own accord and well.
    bool end() {
        m_process.waitForFinished(60'000); // false as well of one that has gone already
        listen(0);
        in_hand_is_over(whole::shared_clock(), false);
        return m_process.state() == QProcess::NotRunning && m_process.exitStatus() == QProcess::NormalExit &&
               m_process.exitCode() == 0;
    }

    std::vector<Save> saves; ///< that are over, whoever made them
    int days_left = 0;       ///< to what another PC had saved

private:
    /// What the sheet has and nobody typed here is no person's.
    void take_in_hand(const Day& day, qint64 clock_in, qint64 time) {
        if (m_in_hand.clock_ins.empty())
            m_in_hand.begun = time;
        if (m_typed[day].contains(clock_in))
            m_in_hand.clock_ins[day] = clock_in;
    }
    void in_hand_is_over(qint64 time, bool confirmed) {
        Save save = std::exchange(m_in_hand, {});
        save.pc = m_place.seed / seeds_apart % 10;
        save.over = time;
        save.confirmed = confirmed;
        for (const auto& [day, clock_in] : save.clock_ins)
            if (confirmed)
                m_typed.erase(day);
        if (!save.clock_ins.empty())
            saves.push_back(std::move(save));
    }
    void start() {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QCoreApplication::applicationFilePath(), m_place.arguments());
    }
    void hear(const QByteArrayList& words) {
        const qint64 time = words[0].toLongLong();
        const QByteArray what = words.value(1);
        const Day day(words.value(2).toLongLong(), words.value(3).toLongLong());
        if (what == whole::say_types)
            m_typed[day].insert(words.value(4).toLongLong());
        if (what == whole::say_changed)
            take_in_hand(day, words.value(4).toLongLong(), time);
        if (what == whole::say_left) {
            days_left += int(m_in_hand.clock_ins.erase(day));
            m_typed.erase(day);
        }
        if (what == whole::say_ok || what == whole::say_refused)
            in_hand_is_over(time, what == whole::say_ok);
    }

    whole::PlaceOfWork m_place;
    QProcess m_process;
    Save m_in_hand;
    std::map<Day, std::set<qint64>> m_typed; ///< here, and neither confirmed nor given up yet
};

/// A main PC with its turn service, and the trees of other PCs beside it.
class SharedFolder : public testing::Test {
protected:
    void TearDown() override {
        service.terminate();
        service.waitForFinished();
    }

    QString drive(const QString& pc) const { return folder.filePath(pc); }
    QString programs(const QString& pc) const {
        return drive(pc) + u"/Program Files/meridan/qn/rovena100/system/exe/exe"_s;
    }
    base::Settings settings() const {
        base::Settings result;
        result.server_root = drive(u"main"_s) + u"/Program Files/meridan/qn"_s;
        result.local_root = result.server_root;
        return result;
    }

    void start_service(const QString& program, const QStringList& arguments) {
        service.setReadChannel(QProcess::StandardError);
        service.start(program, arguments);
        static const QRegularExpression opened(u"127\\.0\\.0\\.1:(\\d+)"_s);
        QString log;
        while (!opened.match(log).hasMatch() && service.waitForReadyRead(30'000))
            log += QString::fromUtf8(service.readAllStandardError());
        port = opened.match(log).captured(1).toUShort();
    }

    QStringList rows(std::string_view sql) const {
        return support::rows_of(store::rovdata_path(settings()), store::Kind::Rovdata, sql);
    }

    /// Every day once, and as what was said of the saves allows.
    void expect_stored(std::vector<Save> saves) const {
        EXPECT_EQ(rows("select 社員システム番号, 出社日 from rovmei group by 1, 2 having count(*) > 1"), QStringList());
        std::map<Day, qint64> stored;
        for (const QString& row : rows("select 社員システム番号, 出社日, 出社時間 from rovmei"
                                       " where 出社日 between 20261001 and 20261031 and 出社時間 <> 0"))
            stored[{row.section(u'|', 0, 0).toLongLong(), row.section(u'|', 1, 1).toLongLong()}] =
                row.section(u'|', 2).toLongLong();
        EXPECT_EQ(whole::Saves(std::move(saves)).faults(stored), "");
    }

    QTemporaryDir folder;
    QProcess service;
    quint16 port = 0;
};

// What the month's row and its counts are besides what the days give, and the other way round; nothing if all is well.
constexpr std::string_view sums_beside_days = R"(
    select * from (select 社員システム番号, sum(sign * (休憩時間 / 100 * 60 + 休憩時間 % 100)) as pause,
            sum(sign * (勤務時間 / 100 * 60 + 勤務時間 % 100)) as work
        from (select *, case 出社日 % 100 when 32 then -1 else 1 end as sign from rovmei where 出社日 / 100 = 202610)
        group by 1) where pause <> 0 or work <> 0)";
constexpr std::string_view hours_beside_days = R"(
    select * from (select 社員システム番号, 勤務種類, sum(sign * (時間 / 100 * 60 + 時間 % 100)) as hours
        from (select *, case 年月日 % 100 when 32 then -1 else 1 end as sign from kinjisyu where 年月日 / 100 = 202610)
        group by 1, 2) where hours <> 0)";
constexpr std::string_view counts_beside_days = R"(
    with worked as (select 社員システム番号 as who, count(nullif(勤務時間, 0)) as days from rovmei
            where 出社日 between 20261001 and 20261031 group by 1),
        counted as (
            select who, -1, 0, days as number from worked union all
            select who, -2, 0, 31 - days from worked union all
            select 社員システム番号, システム番号, case when coalesce(休出, '') in ('', '0') then 1 else 2 end, count(*) from kyumei
                where 年月日 / 100 = 202610 group by 1, 2, 3 union all
            select 社員システム番号, 勤務種類, 0, count(*) from kinjisyu
                where 年月日 between 20261001 and 20261031 group by 1, 2),
        stored as (select 社員システム番号, システム番号, 休暇残業, 日数１ from kinnisu where 年月 = 202610)
    select 'counted', * from (select * from counted where number <> 0 except select * from stored)
    union all select 'stored', * from (select * from stored except select * from counted))";

int seed() {
    const int given = qEnvironmentVariableIntValue("ROVENA_SYSTEM_SEED");
    return given > 0 ? given : 1;
}

int seconds_of_work(int usual) {
    const int seconds = qEnvironmentVariableIntValue("ROVENA_SYSTEM_SECONDS");
    return seconds > 0 ? seconds : usual;
}

class Company : public SharedFolder {
protected:
    void SetUp() override {
        const QStringList company{u"--use-class"_s, u"0"_s, u"--sample"_s, u"5"_s, u"1"_s, u"--until"_s, u"202609"_s};
        if (!support::data_server().isEmpty()) {
            const QStringList there{u"--data-server"_s, QString::fromUtf8(database.emplace().connection())};
            install(u"main"_s, company + there);
            for (const auto& name : {u"second"_s, u"third"_s})
                install(name, there);
            return;
        }
        install(u"main"_s, company);
        for (const auto& [name, use_class] : {std::pair(u"second"_s, u"1"_s), std::pair(u"third"_s, u"2"_s)})
            install(name, {u"--use-class"_s, use_class, u"--server-root"_s, settings().server_root, u"--server-name"_s,
                              u"127.0.0.1"_s}); // the main PC named itself, by a name that no network here knows
        start_service(0);
    }

    void install(const QString& pc, const QStringList& options) {
        e2e::install(QStringList{drive(pc), u"--assets"_s, bin + u"/../artwork"_s} + options);
    }

    void start_service(quint16 wanted) {
        SharedFolder::start_service(bin + u"/jyunban"_s,
            {u"--bind"_s, u"127.0.0.1"_s, u"--port"_s, digits(wanted), u"--root"_s, settings().server_root});
    }
    void kill_server() {
        if (database) {
            support::tell_server(u"die"_s);
            support::tell_server(u"live"_s);
            return;
        }
        service.kill();
        service.waitForFinished();
        start_service(port);
    }
    /// Managers are started detached, so they are found by their program file.
#ifdef Q_OS_WIN
    void kill_managers() const {
        QProcess::execute(u"taskkill"_s, {u"/F"_s, u"/IM"_s, u"jyusinkanri.exe"_s});
    }
#else
    void kill_managers() const {
        for (const QString& process : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
            const QString program = QFile::symLinkTarget(u"/proc/%1/exe"_s.arg(process));
            if (program.startsWith(folder.path()) && program.endsWith(u"/jyusinkanri"_s))
                ::kill(process.toInt(), SIGKILL);
        }
    }
#endif

    void work(std::vector<std::unique_ptr<Pc>>& pcs, int seconds) {
        std::mt19937 random{unsigned(seed())};
        const auto some = [&](int last) { return int(random() % unsigned(last + 1)); };
        QDeadlineTimer until(seconds * 1000LL);
        while (!until.hasExpired()) {
            for (QDeadlineTimer pause(500 + some(1500)); !pause.hasExpired();)
                for (const auto& pc : pcs)
                    pc->listen(20);
            const int victim = kills % 6; // each in turn, whatever the moments
            if (victim < 3)
                pcs[size_t(victim)]->kill_and_start(int(until.remainingTime() / 1000) + 1);
            else if (victim == 3)
                kill_server();
            else
                kill_managers();
            ++kills;
        }
    }

    /// The clerks at the three PCs, with rows of the employee list that they work on.
    std::vector<std::unique_ptr<Pc>> clerks(const std::array<int, 3>& own_rows, int seconds, int last_day) const {
        std::vector<std::unique_ptr<Pc>> pcs;
        for (const QString& name : {u"main"_s, u"second"_s, u"third"_s})
            pcs.push_back(std::make_unique<Pc>(whole::PlaceOfWork{programs(name), port, own_rows[pcs.size()],
                shared_row, seconds, 10 * seeds_apart * seed() + seeds_apart * int(pcs.size() + 1), last_day}));
        return pcs;
    }

    /// Once all have gone home.
    void expect_all_in_order(const std::vector<std::unique_ptr<Pc>>& pcs) const {
        std::vector<Save> saves;
        int left = 0;
        for (const auto& pc : pcs) {
            EXPECT_TRUE(pc->end());
            saves.insert(saves.end(), pc->saves.begin(), pc->saves.end());
            left += pc->days_left;
        }
        const auto confirmed = std::ranges::count_if(saves, &Save::confirmed);
        std::printf("seed %d: %d saves confirmed, %d cut off or refused, %d kills, %d days left to another\n", seed(),
            int(confirmed), int(std::ssize(saves) - confirmed), kills, left);
        EXPECT_GT(confirmed, 3);
        apply_the_rest();
        expect_stored(std::move(saves));
        for (const std::string_view sql : {sums_beside_days, hours_beside_days, counts_beside_days})
            EXPECT_EQ(rows(sql), QStringList()) << sql;
    }

    /// What still waits is applied as after any save.
    void apply_the_rest() const {
        const QString program = settings().server_root + u"/comdata/exe/exe/jyusinkanri"_s;
        const auto idle = [&] {
            return !platform::ProgramLock::held(store::exchange_folder(settings()), u"jyusinkanri"_s);
        };
        ASSERT_TRUE(QTest::qWaitFor(idle, 60'000));
        EXPECT_EQ(QProcess::execute(program, {u"--root"_s, settings().server_root}), 0);
        EXPECT_EQ(e2e::rows_waiting(settings()), 0);
    }

    std::optional<support::OwnDatabase> database;
    int kills = 0;
};

void expect_whole(const QString& path, store::Kind kind) {
    if (!store::place_at(path)) {
        EXPECT_EQ(support::rows_of(path, kind, "pragma integrity_check"), QStringList(u"ok"_s)) << path.toStdString();
    }
}

} // namespace

#ifdef Q_OS_LINUX // the installer of Windows is tried by packaging/windows/tried

/// What the package lays out, in a folder of the test in the place of the system's.
class Packaged : public SharedFolder {
protected:
    void SetUp() override {
        ASSERT_EQ(run({u"cmake"_s, u"--install"_s, QStringLiteral(ROVENA_BUILD), u"--prefix"_s, usr}), 0);
    }

    static int run(const QStringList& command) { return QProcess::execute(command.first(), command.sliced(1)); }

    /// A line of the turn service's unit.
    QStringList line(const QString& key) const {
        QFile unit(usr + u"/lib/systemd/system/jyunban.service"_s);
        EXPECT_TRUE(unit.open(QIODevice::ReadOnly));
        QString text = QString::fromUtf8(unit.readAll()).section(u'\n' + key + u'=', 1).section(u'\n', 0, 0);
        text.replace(u"/usr/"_s, usr + u'/').replace(u"/var/lib/rovena"_s, drive(u"main"_s));
        return QProcess::splitCommand(text);
    }

    QString shown_by(const QString& pc) const {
        QProcess show;
        show.start(usr + u"/bin/rovena-install"_s, {u"show"_s, drive(pc)});
        EXPECT_TRUE(show.waitForFinished());
        return QString::fromUtf8(show.readAllStandardOutput());
    }

    const QString usr = folder.filePath(u"usr"_s);
};

TEST_F(Packaged, LetsAnotherPcSaveWhatTheServiceOfTheMainPcApplies) {
    ASSERT_EQ(run(line(u"ExecStartPre"_s) + QStringList{u"--sample"_s, u"5"_s, u"1"_s, u"--until"_s, u"202609"_s}), 0);
    ASSERT_EQ(run(line(u"ExecStartPre"_s)), 0) << "the service started anew";
    const QStringList service_line = line(u"ExecStart"_s);
    start_service(
        service_line.first(), service_line.sliced(1) + QStringList{u"--bind"_s, u"127.0.0.1"_s, u"--port"_s, u"0"_s});

    const QString tool = usr + u"/bin/rovena-install"_s;
    ASSERT_EQ(run({tool, drive(u"second"_s), u"--use-class"_s, u"2"_s, u"--server-root"_s, settings().server_root}), 0);
    EXPECT_TRUE(shown_by(u"second"_s).contains(u"サーバー名 = "_s + QSysInfo::machineHostName()));
    ASSERT_EQ(run({tool, drive(u"second"_s), u"--server-name"_s, u"127.0.0.1"_s}), 0) << "known to every network";
    EXPECT_TRUE(shown_by(u"main"_s).contains(u"サーバー名 = 127.0.0.1\n"_s));

    Pc second({programs(u"second"_s), port, 1, 1, 1, 7});
    EXPECT_TRUE(second.end());
    EXPECT_TRUE(std::ranges::any_of(second.saves, &Save::confirmed));
    ASSERT_TRUE(QTest::qWaitFor([&] { return e2e::rows_waiting(settings()) == 0; }, 60'000));
    expect_stored(second.saves);
}

#endif

TEST_F(Company, EveryConfirmedDayStandsOnceWhoeverIsKilled) {
    const int length = seconds_of_work(database ? 12 : 20);
    auto pcs = clerks({1, 2, 3}, length, 31);
    work(pcs, length);
    expect_all_in_order(pcs);
    EXPECT_EQ(QDir(store::exchange_folder(settings()) + u"/nokori"_s).entryList(QDir::Files), QStringList());
    for (const QString& name : {u"rovdata"_s, u"comsys"_s, u"allsystem"_s}) {
        const e2e::DataFile file = e2e::file_called(name, settings());
        expect_whole(file.path, file.kind);
    }
    for (int file = 1; file <= store::exchange_file_count; ++file)
        expect_whole(store::exchange_path(settings(), file), store::Kind::Exchange);
}

TEST_F(Company, ThreePcsInTheSameMonthsEmptyNobodysDayAndCountThemAll) {
    const int length = seconds_of_work(12);
    auto pcs = clerks({3, 3, 3}, length, 8);
    work(pcs, length);
    expect_all_in_order(pcs);
}
