// The company's way to a server and back, by the program itself. Needs a server (scripts/with-server).

#include "company.h"
#include "install/restore.h"
#include "platform/program_lock.h"
#include "store/held.h"
#include "store/server_turn.h"
#include "store/sums.h"
#include "support/data_server.h"
#include "support/killed.h"
#include "support/server_proxy.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <numeric>
#include <optional>

namespace install {

QString posting_path(const base::Settings& settings) {
    return exchange_path(settings, 1);
}

constexpr File moved_files[]{{Kind::Rovdata, rovdata_path}, {Kind::Comsys, comsys_path},
    {Kind::Allsystem, allsystem_path}, {Kind::Closings, closings_path}, {Kind::Exchange, posting_path}};
constexpr int all_of_them = int(std::size(moved_files));

/// A made-up company in files, and a database of its own on the server.
class MovedCompany : public testing::Test {
protected:
    void SetUp() override {
        if (support::data_server().isEmpty())
            GTEST_SKIP() << "no server";
        server = database.emplace().connection();
        make_company(root, {3, 1});
        Database::create(closings_path(settings), Kind::Closings)
            .exec("insert into simekiri (年月, 締端末) values (202611, 'ＰＣ')");
        Database::open(rovdata_path(settings), Kind::Rovdata)
            .exec("insert into rovmei (社員システム番号, 出社日, 出社時間, 備考) values (1, 20300101, '', '')");
        rows = rows_now();
    }

    static base::Settings settings_below(const QString& drive) {
        Options options;
        options.root = drive;
        return settings_of(options);
    }

    QStringList rows_now() const {
        QStringList all;
        for (const auto& [kind, path] : moved_files)
            all << all_rows(path(settings), kind);
        return all;
    }

    int on_server() const {
        return int(std::ranges::count_if(
            moved_files, [&](const File& file) { return place_at(file.path(settings)).has_value(); }));
    }

    int move(const QStringList& goal,
        const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment()) const {
        if (goal == to_files)
            support::cut_all_connections(); // this test's own
        return support::status_of(*support::start_program(qEnvironmentVariable("ROVENA_BIN") + u"/rovena-install"_s,
            QStringList{u"move"_s, root} + goal, environment));
    }
    int to_server() const { return move({u"--to-server"_s, QString::fromUtf8(server)}); }

    QStringList left_over() const {
        QStringList left;
        for (const QString& place : {data_folder(settings), QFileInfo(comsys_path(settings)).path()})
            left << QDir(place).entryList({u"*.moving"_s, u"*.new"_s}, QDir::Files);
        return left << QDir(folder_of_all()).entryList({u"*.plan"_s, u"files-*"_s});
    }
    QStringList in_passing() const { return left_over().filter(QRegularExpression(u"^(?!files-)"_s)); }
    QString folder_of_all() const { return QFileInfo(data_folder(settings)).path(); }

    int count_there(const QString& rest) const {
        QProcess tool;
        tool.start(u"psql"_s, {QString::fromUtf8(server), u"-qAtc"_s, u"select count(*) from "_s + rest});
        tool.waitForFinished();
        return tool.readAllStandardOutput().trimmed().toInt();
    }
    int schemas(const QString& like) const {
        return count_there(
            u"pg_namespace where nspname ~ '^(comsys|allsystem|rovdata|simekiri|jyusin)%1$'"_s.arg(like));
    }

    void expect_untouched(const char* why) const {
        EXPECT_EQ(on_server(), 0) << why;
        EXPECT_TRUE(rows_now() == rows) << why;
        EXPECT_EQ(left_over(), QStringList()) << why;
        EXPECT_EQ(schemas(u".*"_s), 0) << why;
    }

    /// Whoever opens the company finds all of it at one place, or doesn't find it. Returns how many lie on the server,
    /// -1 if the company is closed.
    int expect_whole_or_closed(int kill) const {
        try {
            Database::open(rovdata_path(settings), Kind::Rovdata);
        } catch (const store::Error& error) {
            EXPECT_EQ(error.code(), Code::Missing) << kill;
            return -1;
        }
        const int there = on_server();
        EXPECT_TRUE(there == 0 || there == all_of_them) << there << " kill " << kill;
        EXPECT_TRUE(rows_now() == rows) << kill;
        return there;
    }

    /// How a broken move leaves the company; then it is where it was, and nothing is left to undo.
    enum class Left { AsItWas, Changed, Moved };
    using BrokenMove = std::function<int(const QStringList& goal, int step)>;

    Left left_by(const BrokenMove& broken_move, int way, int n) const {
        const bool ended = broken_move(goal(way), n) == 0;
        const bool as_it_was = !ended && expect_whole_or_closed(n) == (way == 0 ? 0 : all_of_them);
        if (as_it_was) {
            EXPECT_EQ(move(goal(1 - way)), 1) << "it is there";
            EXPECT_FALSE(in_passing().join(u' ').contains(u".plan"_s)) << "the rest is undone";
            return Left::AsItWas;
        }
        EXPECT_EQ(ended ? 0 : move(goal(way)), 0) << n;
        EXPECT_EQ(on_server(), way == 0 ? all_of_them : 0) << n;
        EXPECT_TRUE(rows_now() == rows) << n;
        EXPECT_EQ(move(goal(1 - way)), 0) << n;
        return ended ? Left::Moved : Left::Changed;
    }

    /// Steps from one broken move to the next, before places begin to change hands and from then on, and how many moves
    /// are broken at least.
    struct Steps {
        int many, few, least;
    };

    /// Each move is broken some steps later than the one before. Then the very last step is sought at which it can be.
    /// For 0 few the first change is the end.
    void expect_whole_or_closed_after_any(const BrokenMove& broken_move, const Steps& steps) const {
        int broken = 0;
        for (const int way : {0, 1}) {
            const auto left = [&](int n) {
                const Left by = left_by(broken_move, way, n);
                broken += by == Left::Moved ? 0 : 1;
                return HasFailure() ? Left::Moved : by;
            };
            int last = 0, next = steps.many, width = steps.many;
            for (Left by; width > 0 && (by = left(next)) != Left::Moved; next = last + width) {
                if (by == Left::AsItWas || width <= steps.few)
                    last = next;
                else
                    width = steps.few; // from the last one on that changed nothing
            }
            while (steps.few > 0 && next - last > 1) {
                const int middle = std::midpoint(last, next);
                (left(middle) == Left::Moved ? next : last) = middle;
            }
            if (steps.few > 0 && last > 0) {
                EXPECT_NE(broken_move(goal(way), last), 0);
            }
            ASSERT_EQ(move(goal(way)), 0) << "what was broken is undone first";
            EXPECT_EQ(in_passing(), QStringList());
        }
        std::printf("%d broken\n", broken);
        EXPECT_GE(broken, steps.least);
    }

    QStringList goal(int way) const {
        if (way == 1)
            return to_files;
        return {u"--to-server"_s, QString::fromUtf8(server)};
    }

    static inline const QStringList to_files{u"--to-files"_s};
    QTemporaryDir folder{QDir::tempPath() + u"/../move-XXXXXX"_s}; // beside what the server serves
    const QString root = folder.filePath(u"root"_s);
    const base::Settings settings = settings_below(root);
    std::optional<support::OwnDatabase> database;
    QByteArray server;
    QStringList rows;
};

TEST_F(MovedCompany, IsTheSameThereAndBackAndWhatWasMovedStays) {
    std::map<QString, QByteArray> files;
    for (const auto& [kind, path] : moved_files)
        files[QFileInfo(path(settings)).fileName()] = support::bytes_of(path(settings));
    ASSERT_EQ(to_server(), 0);
    EXPECT_EQ(on_server(), all_of_them);
    EXPECT_TRUE(rows_now() == rows);
    const QDir aside = QDir(folder_of_all()).entryInfoList({u"files-*"_s}).value(0).filePath();
    for (const auto& [file, bytes] : files)
        EXPECT_TRUE(support::bytes_of(aside.filePath(file)) == bytes) << file.toStdString();
    EXPECT_EQ(to_server(), 1) << "it is there";

    Database::open(rovdata_path(settings), Kind::Rovdata).exec("insert into kinsyu values (99, '夜')");
    rows = rows_now();
    EXPECT_EQ(schemas({}), all_of_them);
    ASSERT_EQ(move(to_files), 0);
    EXPECT_EQ(on_server(), 0);
    EXPECT_TRUE(rows_now() == rows);
    EXPECT_EQ(schemas({}), 0);
    EXPECT_EQ(schemas(u"-[0-9]{8}-[0-9]{6}"_s), all_of_them) << "set aside";
    EXPECT_FALSE(QFileInfo::exists(folder_of_all() + u"/data-server"_s));
    EXPECT_EQ(move(to_files), 1) << "it is there";
    ASSERT_EQ(move({u"--to-server"_s, QString::fromUtf8(server), u"--partitions"_s, u"4"_s}), 0);
    EXPECT_TRUE(rows_now() == rows);
    EXPECT_EQ(count_there(u"pg_inherits join pg_class on oid = inhparent where relkind = 'p'"
                          " and relnamespace::regnamespace::text in ('rovdata', 'simekiri')"_s),
        5 * 4);
    EXPECT_EQ(support::bytes_of(folder_of_all() + u"/data-server"_s), server + "\npartitions 4\n");
    ASSERT_EQ(move(to_files), 0);
    EXPECT_TRUE(rows_now() == rows);
}

TEST_F(MovedCompany, StaysWhereAProgramIsOpenOrRowsWaitOrTheCopyWouldNotBeTheSame) {
    {
        platform::ProgramLock program(data_folder(settings), u"rovena"_s);
        ASSERT_TRUE(program.share(std::chrono::milliseconds(0)));
        EXPECT_EQ(to_server(), 1);
        expect_untouched("a program is open");
    }
    const auto refused_with = [this](const QString& path, Kind kind, std::string_view done, std::string_view undone) {
        Database::open(path, kind).exec(done);
        const QStringList as_it_was = std::exchange(rows, rows_now());
        EXPECT_EQ(to_server(), 1);
        expect_untouched(std::string(done).c_str());
        Database::open(path, kind).exec(undone);
        rows = as_it_was;
    };
    refused_with(
        exchange_path(settings, 7), Kind::Exchange, "insert into jyusin (\"1\") values ('1')", "delete from jyusin");
    refused_with(comsys_path(settings), Kind::Comsys, "create table uriage (kingaku integer)", "drop table uriage");
    refused_with(rovdata_path(settings), Kind::Rovdata,
        "insert into kinsyu values (77, cast(x'e5a49cff' as text)); insert into kinsyu values (78, 'x')",
        "delete from kinsyu where システム番号 in (77, 78)");
    EXPECT_EQ(move({u"--to-server"_s, u"host=/nowhere"_s}), 1);
    expect_untouched("no server");
    EXPECT_EQ(move({u"--to-server"_s, u"host=x password=y"_s}), 1);

    QProcess::execute(u"psql"_s, {QString::fromUtf8(server), u"-qc"_s, u"create schema allsystem"_s});
    EXPECT_EQ(to_server(), 1);
    EXPECT_EQ(on_server(), 0) << "another company is there";
    QProcess::execute(u"psql"_s, {QString::fromUtf8(server), u"-qc"_s, u"drop schema allsystem"_s});
    expect_untouched("another company was there");

    ASSERT_EQ(to_server(), 0);
    support::cut_all_connections();
    auto turn = server_turn(posting_path(settings), TurnFor::Posting);
    ASSERT_TRUE(turn->take_within(std::chrono::seconds(5)));
    turn.reset();
    EXPECT_EQ(support::status_of(*support::start_program(
                  qEnvironmentVariable("ROVENA_BIN") + u"/rovena-install"_s, {u"move"_s, root, u"--to-files"_s})),
        1);
    EXPECT_EQ(on_server(), all_of_them) << "somebody works with it, and has saved";
}

TEST_F(MovedCompany, IsRestoredOnItsServerWhenNoProgramOfAnotherTreeIsConnected) {
    ASSERT_EQ(to_server(), 0);
    const QString before = QDir(folder_of_all()).entryInfoList({u"files-*"_s}).value(0).filePath();
    const auto restore = [&] {
        restore_backup(
            {before, root}, QDateTime::currentDateTime(), [](const QString&) {}, std::chrono::milliseconds(500));
    };
    const QString other = folder.filePath(u"other.mdb"_s);
    support::put_bytes(other, bytes_of(ServerPlace{server + " application_name=other", u"rovdata"_s}));
    {
        Database open = Database::open(other, Kind::Rovdata);
        open.exec("insert into kinsyu values (99, '夜')");
        EXPECT_THROW(restore(), std::runtime_error);
        EXPECT_TRUE(open.prepare("select 1 from kinsyu where システム番号=99").step());
    }
    restore();
    EXPECT_TRUE(rows_now() == rows);
}

TEST_F(MovedCompany, IsWholeOrClosedAfterAMoveThatIsKilledAtAnyChangeOfAFile) {
    ROVENA_NEEDS_THE_SHIM;
    expect_whole_or_closed_after_any(
        [this](const QStringList& goal, int n) { return move(goal, support::killed_before_change(n)); }, {10, 3, 25});
}

#ifdef Q_OS_LINUX
using support::Trouble;

struct TroubledMove {
    Trouble trouble;
    int many, few, least; ///< in messages
};

class MoveInTrouble : public MovedCompany, public testing::WithParamInterface<TroubledMove> {
protected:
    void SetUp() override {
        MovedCompany::SetUp();
        if (IsSkipped() || GetParam().trouble != Trouble::Full)
            return;
        disk.emplace("size=8m");
        if (!disk->is_there())
            GTEST_SKIP() << "only the administrator has such a disk";
        support::psql(u"alter role rovena set default_tablespace=small"_s);
    }
    void TearDown() override {
        database.reset();
        if (disk)
            support::psql(u"alter role rovena reset default_tablespace"_s);
    }

    std::optional<support::ServerDisk> disk;
};

TEST_P(MoveInTrouble, IsWholeOrClosedBehindAnyMessage) {
    support::ServerProxy proxy;
    server = proxy.connection(server) + support::impatient;
    const auto& [trouble, many, few, least] = GetParam();
    const bool every = support::Troubled::every_message();
    expect_whole_or_closed_after_any(
        [&](const QStringList& goal, int n) {
            proxy.trouble_behind(n, trouble);
            const int status = move(goal);
            proxy.end_trouble();
            return status;
        },
        every ? Steps{1, 1, least} : Steps{many, few, least});
}

INSTANTIATE_TEST_SUITE_P(Of, MoveInTrouble,
    testing::Values(TroubledMove{Trouble::Cut, 1000, 1000, 12}, TroubledMove{Trouble::Death, 1100, 0, 4},
        TroubledMove{Trouble::Silence, 1400, 0, 3}, TroubledMove{Trouble::Full, 700, 0, 4}));
#endif

} // namespace install
