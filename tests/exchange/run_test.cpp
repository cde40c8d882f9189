#include "exchange/run.h"

#include "exchange/places.h"
#include "exchange_tree.h"
#include "frame/exchange_files.h"
#include "platform/program_lock.h"

namespace exchange {

using namespace std::chrono_literals;

namespace {

QString leave(int date, int kind = 3) {
    return u"54|%1|7|%2|公休|0"_s.arg(date).arg(kind);
}
std::string stored(int date, int kind = 3) {
    return std::string("54|7|") + std::to_string(date) + "|" + std::to_string(kind) + "|公休|0||";
}

class Run : public testing::Test {
protected:
    bool apply_all() { return ManagerRun(tree.settings, watch, 50ms).apply_all(); }
    bool apply_while_another_writes(const QString& path, store::Kind kind) {
        store::Database other = store::Database::open(path, kind);
        const store::Transaction writing(other);
        return apply_all();
    }

    Tree tree;
    QStringList told;
    std::function<void()> on_taken; ///< what happens once, after the first file's rows were taken
    std::function<void()> on_trouble = [] {};
    Watch watch{.trouble =
                    [this](const QString& message) {
                        told << message;
                        on_trouble();
                    },
        .taken =
            [this](qint64) {
                if (const auto happens = std::exchange(on_taken, nullptr))
                    happens();
            }};
};

} // namespace

TEST_F(Run, KeptRowsComeFirstTheOldestFirstAndThenTheFilesByTheirNumbers) {
    const auto from = [](int first) {
        Rows rows;
        for (int day = first; day <= 5; ++day)
            rows << leave(20041000 + day, first);
        return rows;
    };
    tree.post(from(5), 20);
    tree.post(from(4), 2);
    tree.post(from(3), 1);
    tree.keep(u"hanjyusin01-20041006-090000-000.mdb"_s, from(2));
    tree.keep(u"hanjyusin02-20041005-090000-000.mdb"_s, from(1));
    EXPECT_TRUE(apply_all());
    std::string expected = stored(20041001, 1);
    for (int day = 2; day <= 5; ++day)
        (expected += '\n') += stored(20041000 + day, day);
    EXPECT_EQ(tree.tables(), expected);
    EXPECT_TRUE(QDir(tree.kept_folder()).isEmpty());
}

// A second PC starts while the manager is at work, and somebody saves into the new file before the manager looks again.
TEST_F(Run, RowsKeptWhileItRunsStayBehindNewerOnes) {
    tree.post({leave(20041009)});
    on_taken = [&] {
        tree.post({leave(20041001, 1), leave(20041002, 1)});
        frame::交換ファイル作成(tree.settings, QDateTime(QDate(2004, 10, 5), QTime(9, 0)), watch.trouble, 50ms);
        tree.post({leave(20041001, 2)});
    };
    EXPECT_TRUE(apply_all());
    EXPECT_EQ(tree.tables(), stored(20041001, 2) + "\n" + stored(20041002, 1) + "\n" + stored(20041009));
}

// The last pass is past the file when the rows come, and its message about another file is the moment they come in.
TEST_F(Run, RowsPostedBehindTheLastPassAreTakenBeforeTheManagerEnds) {
    store::Database other = store::Database::open(tree.exchange_path(20), store::Kind::Exchange);
    tree.post({leave(20041001)}, 20);
    const store::Transaction writing(other);
    on_trouble = [&] { tree.post({leave(20041002)}, 1); };
    EXPECT_EQ(run_manager(tree.settings, watch, {.manager = 0ms, .file = 50ms}), 0);
    EXPECT_EQ(tree.tables(), stored(20041002));
}

TEST_F(Run, AFileAnotherPCIsWritingIsLeftForTheNextRun) {
    tree.post({leave(20041001)}, 1);
    tree.post({leave(20041002)}, 2);
    EXPECT_TRUE(apply_while_another_writes(tree.exchange_path(1), store::Kind::Exchange));
    EXPECT_EQ(told.size(), 1);
    EXPECT_EQ(tree.tables(), stored(20041002));
    EXPECT_TRUE(apply_all());
    EXPECT_EQ(tree.tables(), stored(20041001) + "\n" + stored(20041002));
}

TEST_F(Run, RowsWaitForAKeptFileOrTheTablesThatAnotherIsWriting) {
    const QString kept = u"hanjyusin01-20041005-090000-000.mdb"_s;
    tree.keep(kept, {leave(20041001, 1)});
    tree.post({leave(20041001, 2)});
    apply_while_another_writes(tree.kept_path(kept), store::Kind::Exchange);
    EXPECT_FALSE(apply_while_another_writes(tree.rovdata_path(), store::Kind::Rovdata));
    EXPECT_EQ(tree.tables(), "");
    EXPECT_TRUE(apply_all());
    EXPECT_EQ(tree.tables(), stored(20041001, 2));
}

TEST_F(Run, ADamagedFileIsToldAMissingOneNotAndTheOthersAreApplied) {
    QFile::remove(tree.exchange_path(1));
    const QByteArray whole = bytes_of(tree.exchange_path(3));
    for (const QByteArray& damage : {QByteArray(), whole.left(1000), QByteArray(whole.size(), 'x')}) {
        put_bytes(tree.exchange_path(3), damage);
        tree.post({leave(20041001)}, 4);
        told.clear();
        EXPECT_FALSE(apply_all());
        EXPECT_EQ(told.size(), 1);
        EXPECT_EQ(tree.left(4), "");
    }
}

TEST_F(Run, AKeptFileThatCannotBeReadInWholeOrPartIsLeftAloneFromThenOn) {
    put_bytes(tree.kept_path(u"hanjyusin01-1.mdb"_s), "noise");
    put_bytes(tree.kept_path(u"hanjyusin01-2.mdb.kowareta"_s), "older noise");
    tree.keep(u"hanjyusin01-3.mdb"_s, {leave(20041001), u"99"_s});
    EXPECT_FALSE(apply_all());
    EXPECT_EQ(tree.tables(), stored(20041001));
    EXPECT_EQ(QDir(tree.kept_folder()).entryList(QDir::Files, QDir::Name),
        QStringList(
            {u"hanjyusin01-1.mdb.kowareta"_s, u"hanjyusin01-2.mdb.kowareta"_s, u"hanjyusin01-3.mdb.kowareta"_s}));
    EXPECT_EQ(tree.errors(tree.kept_path(u"hanjyusin01-3.mdb.kowareta"_s)), "99||||||種別「99」はわかりません");
    EXPECT_TRUE(apply_all());
}

TEST_F(Run, WithoutTablesAllRowsStay) {
    const QByteArray whole = bytes_of(tree.rovdata_path());
    tree.keep(u"hanjyusin01-1.mdb"_s, {leave(20041001, 1)});
    tree.post({leave(20041001, 2)});
    for (const QByteArray& damage : {QByteArray(), QByteArray(whole.size(), 'x'), bytes_of(tree.exchange_path(20))}) {
        put_bytes(tree.rovdata_path(), damage);
        EXPECT_FALSE(apply_all());
    }
    put_bytes(tree.rovdata_path(), whole);
    EXPECT_TRUE(apply_all());
    EXPECT_EQ(tree.tables(), stored(20041001, 2));
}

TEST_F(Run, ItIsSeenAsRunningWhileItAppliesAndASecondOneLeavesTheRowsToTheFirst) {
    const QString folder = store::exchange_folder(tree.settings);
    bool seen = false;
    on_taken = [&] { seen = platform::ProgramLock::held(folder, u"jyusinkanri"_s); };
    tree.post({leave(20041001)});
    EXPECT_EQ(run_manager(tree.settings, watch), 0);
    EXPECT_TRUE(seen);
    platform::ProgramLock first(folder, u"jyusinkanri"_s);
    ASSERT_TRUE(first.take(0ms));
    tree.post({leave(20041002)});
    EXPECT_EQ(run_manager(tree.settings, watch, {.manager = 0ms}), 0);
    EXPECT_EQ(tree.tables(), stored(20041001));
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(Run, ItSaysWhereItCantWriteAndItsPlaceTellsTheRoot) {
    const QString folder = store::exchange_folder(tree.settings);
    EXPECT_EQ(server_root_above(folder + u"/nokori"_s), QDir::cleanPath(tree.settings.server_root));
    EXPECT_EQ(server_root_above(u"/"_s), std::nullopt);
    ASSERT_TRUE(QDir(folder).removeRecursively());
    EXPECT_EQ(run_manager(tree.settings, watch), 1);
    EXPECT_EQ(told, QStringList{u"受信フォルダ %1 に書き込めません"_s.arg(folder)});
}

} // namespace exchange
