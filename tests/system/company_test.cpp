// A company at work: three PCs of different use classes on one shared folder, the turn service and the exchange
// manager, all as real processes, and any of them killed at random moments. In the end every day whose save was
// confirmed stands in the tables once, as it was saved last, and every file is whole. With a data server at hand
// (scripts/with-server) each PC has a tree of its own instead, and it is the server that is killed.
//
// ROVENA_SYSTEM_SECONDS sets how long they work.

#include "base/literals.h"
#include "base/numbers.h"
#include "clerk_at_work.h"
#include "e2e/road/files.h"
#include "platform/program_lock.h"
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

namespace {

const QString bin = qEnvironmentVariable("ROVENA_BIN", u"."_s);
constexpr int shared_row = 4; ///< row of the employee that every clerk works on, and its system number

using Day = std::pair<qint64, qint64>; ///< employee and date

/// What may stand in the tables of a day: the clock-in confirmed last, and those of saves after it that were cut off,
/// which may have been posted or not.
struct Said {
    std::set<qint64> possible;
    bool confirmed = false;
};

/// A clerk's process, which is started anew whenever it was killed, and what it said about its days.
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
        keep_open_days_possible();
        m_open.clear();
        return m_process.state() == QProcess::NotRunning && m_process.exitStatus() == QProcess::NormalExit &&
               m_process.exitCode() == 0;
    }

    std::map<Day, Said> days;
    int confirmed_saves = 0;
    int days_left = 0; ///< to what another PC had saved

private:
    /// They are drafts, and may have been posted, or are posted later.
    void keep_open_days_possible() {
        for (const auto& [day, clock_in] : m_open)
            days[day].possible.insert(clock_in);
    }
    void start() {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QCoreApplication::applicationFilePath(), m_place.arguments());
    }
    void hear(const QByteArrayList& words) {
        if (words[0] == whole::say_try && words.size() == 4)
            m_open[{words[1].toLongLong(), words[2].toLongLong()}] = words[3].toLongLong();
        if (words[0] == whole::say_ok) {
            for (const auto& [day, clock_in] : m_open)
                days[day] = {{clock_in}, true};
            confirmed_saves += m_open.empty() ? 0 : 1;
        }
        if (words[0] == whole::say_left && words.size() == 3)
            days_left += int(m_open.erase({words[1].toLongLong(), words[2].toLongLong()}));
        if (words[0] == whole::say_refused)
            keep_open_days_possible();
        if (words[0] == whole::say_ok || words[0] == whole::say_refused)
            m_open.clear();
    }

    whole::PlaceOfWork m_place;
    QProcess m_process;
    std::map<Day, qint64> m_open; ///< what the save in hand is about
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

    std::map<Day, std::vector<qint64>> stored_days() const {
        auto rovdata = store::Database::open(store::rovdata_path(settings()), store::Kind::Rovdata);
        auto query = rovdata.prepare("select 社員システム番号, 出社日, 出社時間 from rovmei where 出社日/100=202610");
        std::map<Day, std::vector<qint64>> days;
        while (query.step())
            days[{query.row().number(0), query.row().number(1)}].push_back(query.row().number(2));
        return days;
    }

    QTemporaryDir folder;
    QProcess service;
    quint16 port = 0;
};

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
        std::mt19937 random(20261124);
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
            pcs.push_back(std::make_unique<Pc>(whole::PlaceOfWork{
                programs(name), port, own_rows[pcs.size()], shared_row, seconds, 100 * int(pcs.size() + 1), last_day}));
        return pcs;
    }

    /// What all of them said, once they have gone home.
    static std::map<Day, Said> said_by(const std::vector<std::unique_ptr<Pc>>& pcs) {
        std::map<Day, Said> said;
        for (const auto& pc : pcs) {
            EXPECT_TRUE(pc->end());
            for (const auto& [day, of_one] : pc->days) {
                said[day].possible.insert(of_one.possible.begin(), of_one.possible.end());
                said[day].confirmed |= of_one.confirmed;
            }
        }
        return said;
    }

    void expect_enough(const std::vector<std::unique_ptr<Pc>>& pcs) const {
        int saves = 0, left = 0;
        for (const auto& pc : pcs) {
            saves += pc->confirmed_saves;
            left += pc->days_left;
        }
        std::printf("%d saves confirmed, %d kills, %d days left to another\n", saves, kills, left);
        EXPECT_GT(saves, 3);
    }

    void expect_stored(const std::map<Day, Said>& said) const {
        const auto stored = stored_days();
        for (const auto& [day, clock_ins] : stored)
            EXPECT_EQ(clock_ins.size(), 1u) << day.first << " " << day.second;
        for (const auto& [day, wanted] : said) {
            const auto found = stored.find(day);
            if (found == stored.end())
                EXPECT_FALSE(wanted.confirmed) << day.first << " " << day.second << " is lost";
            else
                EXPECT_TRUE(wanted.possible.contains(found->second.front()) || !wanted.confirmed)
                    << day.first << " " << day.second << " holds " << found->second.front();
        }
    }

    QStringList rows(std::string_view sql) const {
        return support::rows_of(store::rovdata_path(settings()), store::Kind::Rovdata, sql);
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

int seconds_of_work(int usual) {
    const int seconds = qEnvironmentVariableIntValue("ROVENA_SYSTEM_SECONDS");
    return seconds > 0 ? seconds : usual;
}

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
    EXPECT_GE(second.confirmed_saves, 1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return e2e::rows_waiting(settings()) == 0; }, 60'000));
    const auto stored = stored_days();
    for (const auto& [day, wanted] : second.days) {
        ASSERT_TRUE(stored.contains(day)) << day.second;
        EXPECT_EQ(wanted.possible, std::set<qint64>{stored.at(day).front()}) << day.second;
    }
}

#endif

TEST_F(Company, EveryConfirmedDayStandsOnceWhoeverIsKilled) {
    const int length = seconds_of_work(database ? 12 : 20);
    auto pcs = clerks({1, 2, 3}, length, 31);
    work(pcs, length);
    const std::map<Day, Said> said = said_by(pcs);
    apply_the_rest();

    expect_enough(pcs);
    expect_stored(said);
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
    const std::map<Day, Said> said = said_by(pcs);
    apply_the_rest();

    expect_enough(pcs);
    expect_stored(said);
    for (const std::string_view sql : {sums_beside_days, hours_beside_days, counts_beside_days})
        EXPECT_EQ(rows(sql), QStringList()) << sql;
}
