#include "exchange/run.h"

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
    return "54|7|" + std::to_string(date) + "|" + std::to_string(kind) + "|公休|0||";
}

class Run : public testing::Test {
protected:
    bool apply_all() { return ManagerRun(tree.settings, watch, 50ms).apply_all(); }
    bool kept_there(const QString& name) const { return QFile::exists(tree.kept_path(name)); }

    Tree tree;
    QStringList told;
    std::vector<std::function<void()>> on_taken; ///< what happens after a file's rows were taken, one after the other
    std::function<void()> on_trouble = [] {};
    Watch watch{.trouble =
                    [this](const QString& message) {
                        told << message;
                        on_trouble();
                    },
        .taken =
            [this](qint64) {
                if (on_taken.empty())
                    return;
                const auto next = on_taken.front();
                on_taken.erase(on_taken.begin());
                next();
            }};
};

} // namespace

TEST_F(Run, TheFilesAreAppliedInTheOrderOfTheirNumbers) {
    tree.post({leave(20041001, 5)}, 20);
    tree.post({leave(20041001, 4), leave(20041002, 4)}, 2);
    tree.post({leave(20041001, 3), leave(20041002, 3), leave(20041003, 3)}, 1);
    EXPECT_TRUE(apply_all());
    EXPECT_EQ(tree.tables(), stored(20041001, 5) + "\n" + stored(20041002, 4) + "\n" + stored(20041003, 3));
}

TEST_F(Run, KeptRowsComeBeforeNewerOnesTheOldestFirst) {
    tree.keep(u"hanjyusin01-20041006-090000-000.mdb"_s, {leave(20041001, 2), leave(20041002, 2)});
    tree.keep(u"hanjyusin02-20041005-090000-000.mdb"_s, {leave(20041001, 1), leave(20041002, 1), leave(20041003, 1)});
    tree.post({leave(20041001, 3)});
    EXPECT_TRUE(apply_all());
    EXPECT_EQ(tree.tables(), stored(20041001, 3) + "\n" + stored(20041002, 2) + "\n" + stored(20041003, 1));
    EXPECT_TRUE(QDir(tree.kept_folder()).isEmpty());
}

// A second PC starts while the manager is at work, and somebody saves into the new file before the manager looks again.
TEST_F(Run, RowsKeptWhileItRunsStayBehindNewerOnes) {
    tree.post({leave(20041009)});
    on_taken.push_back([&] {
        tree.post({leave(20041001, 1), leave(20041002, 1)});
        frame::交換ファイル作成(tree.settings, QDateTime(QDate(2004, 10, 5), QTime(9, 0)), 50ms);
        tree.post({leave(20041001, 2)});
    });
    EXPECT_TRUE(apply_all());
    EXPECT_EQ(tree.tables(), stored(20041001, 2) + "\n" + stored(20041002, 1) + "\n" + stored(20041009));
}

TEST_F(Run, RowsPostedInTheLastPassAreTaken) {
    tree.post({leave(20041001)}, 20);
    on_taken.push_back([&] { tree.post({leave(20041002)}, 1); });
    EXPECT_TRUE(apply_all());
    EXPECT_EQ(tree.tables(), stored(20041001) + "\n" + stored(20041002));
}

// The last pass is past the file when the rows come, and its message about another file is the moment they come in.
TEST_F(Run, RowsPostedBehindTheLastPassAreTakenBeforeTheManagerEnds) {
    store::Database other = store::Database::open(tree.exchange_path(20), store::Kind::Exchange);
    tree.post({leave(20041001)}, 20);
    const store::Transaction writing(other);
    on_trouble = [&] { tree.post({leave(20041002)}, 1); };
    EXPECT_EQ(run_manager(tree.settings, watch, 0ms, 50ms), 0);
    EXPECT_EQ(tree.tables(), stored(20041002));
}

TEST_F(Run, RowsKeptInTheMiddleOfAPassStayBehindNewerOnes) {
    store::Database other = store::Database::open(tree.exchange_path(1), store::Kind::Exchange);
    tree.post({leave(20041009)}, 1);
    const store::Transaction writing(other);
    on_trouble = [&] {
        tree.keep(u"hanjyusin02-20041005-090000-000.mdb"_s, {leave(20041001, 1), leave(20041002, 1)});
        tree.post({leave(20041001, 2)}, 2);
    };
    EXPECT_TRUE(apply_all());
    EXPECT_EQ(tree.tables(), stored(20041001, 2) + "\n" + stored(20041002, 1));
}

TEST_F(Run, AFileAnotherPCIsWritingIsLeftForTheNextRun) {
    tree.post({leave(20041001)}, 1);
    tree.post({leave(20041002)}, 2);
    {
        store::Database other = store::Database::open(tree.exchange_path(1), store::Kind::Exchange);
        const store::Transaction writing(other);
        EXPECT_TRUE(apply_all());
        EXPECT_EQ(told.size(), 1);
    }
    EXPECT_EQ(tree.tables(), stored(20041002));
    EXPECT_TRUE(apply_all());
    EXPECT_EQ(tree.tables(), stored(20041001) + "\n" + stored(20041002));
}

TEST_F(Run, NewerRowsWaitForAKeptFileThatAnotherIsWriting) {
    tree.keep(u"hanjyusin01-20041005-090000-000.mdb"_s, {leave(20041001, 1)});
    tree.post({leave(20041001, 2)});
    {
        store::Database other =
            store::Database::open(tree.kept_path(u"hanjyusin01-20041005-090000-000.mdb"_s), store::Kind::Exchange);
        const store::Transaction writing(other);
        apply_all();
        EXPECT_EQ(tree.tables(), "");
    }
    EXPECT_TRUE(apply_all());
    EXPECT_EQ(tree.tables(), stored(20041001, 2));
}

TEST_F(Run, ADamagedFileIsToldAndTheOthersAreApplied) {
    const QByteArray whole = content(tree.exchange_path(3));
    const std::vector<QByteArray> damages{{}, "text", whole.left(1000), QByteArray(whole.size(), 'x')};
    int date = 20041001;
    for (const QByteArray& damage : damages) {
        write(tree.exchange_path(3), damage);
        tree.post({leave(date)}, 4);
        told.clear();
        EXPECT_FALSE(apply_all());
        EXPECT_EQ(told.size(), 1);
        EXPECT_EQ(tree.left(4), "") << date;
        ++date;
    }
}

TEST_F(Run, AMissingFileIsNoTrouble) {
    QFile::remove(tree.exchange_path(1));
    tree.post({leave(20041001)}, 2);
    EXPECT_TRUE(apply_all());
    EXPECT_EQ(tree.tables(), stored(20041001));
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(Run, AKeptFileThatCannotBeReadIsLeftAloneFromThenOn) {
    write(tree.kept_path(u"hanjyusin01-1.mdb"_s), "noise");
    write(tree.kept_path(u"hanjyusin01-2.mdb.kowareta"_s), "older noise");
    tree.post({leave(20041001)});
    EXPECT_FALSE(apply_all());
    EXPECT_EQ(tree.tables(), stored(20041001));
    EXPECT_TRUE(kept_there(u"hanjyusin01-1.mdb.kowareta"_s));
    EXPECT_TRUE(kept_there(u"hanjyusin01-2.mdb.kowareta"_s));
    EXPECT_TRUE(apply_all());
}

TEST_F(Run, AKeptFileWithUnreadableRowsStaysForAPerson) {
    tree.keep(u"hanjyusin01-1.mdb"_s, {leave(20041001), u"99"_s});
    EXPECT_TRUE(apply_all());
    EXPECT_EQ(tree.tables(), stored(20041001));
    EXPECT_FALSE(kept_there(u"hanjyusin01-1.mdb"_s));
    EXPECT_EQ(tree.errors(tree.kept_path(u"hanjyusin01-1.mdb.kowareta"_s)), "99||||||種別「99」はわかりません");
}

TEST_F(Run, WithoutTablesAllRowsStay) {
    const QByteArray whole = content(tree.rovdata_path());
    tree.keep(u"hanjyusin01-1.mdb"_s, {leave(20041001, 1)});
    tree.post({leave(20041001, 2)});
    for (const QByteArray& damage : {QByteArray(), QByteArray(whole.size(), 'x'), content(tree.exchange_path(20))}) {
        write(tree.rovdata_path(), damage);
        EXPECT_FALSE(apply_all());
    }
    QFile::remove(tree.rovdata_path());
    EXPECT_FALSE(apply_all());
    EXPECT_EQ(told.size(), 4);
    write(tree.rovdata_path(), whole);
    EXPECT_TRUE(apply_all());
    EXPECT_EQ(tree.tables(), stored(20041001, 2));
}

TEST_F(Run, TablesThatAnotherProgramWritesLongerThanThePatienceAreLeftAlone) {
    tree.post({leave(20041001)});
    store::Database master = store::Database::open(tree.rovdata_path(), store::Kind::Rovdata);
    {
        const store::Transaction writing(master);
        EXPECT_FALSE(apply_all());
    }
    EXPECT_NE(tree.left(), "");
    EXPECT_TRUE(apply_all());
    EXPECT_EQ(tree.tables(), stored(20041001));
}

TEST_F(Run, ItIsSeenAsRunningWhileItApplies) {
    const QString folder = store::exchange_folder(tree.settings);
    bool seen = false;
    on_taken.push_back([&] { seen = platform::ProgramLock::held(folder, u"jyusinkanri"_s); });
    tree.post({leave(20041001)});
    EXPECT_EQ(run_manager(tree.settings, watch), 0);
    EXPECT_TRUE(seen);
    EXPECT_FALSE(platform::ProgramLock::held(folder, u"jyusinkanri"_s));
}

TEST_F(Run, ASecondManagerLeavesTheRowsToTheFirst) {
    platform::ProgramLock first(store::exchange_folder(tree.settings), u"jyusinkanri"_s);
    ASSERT_TRUE(first.take(0ms));
    tree.post({leave(20041001)});
    EXPECT_EQ(run_manager(tree.settings, watch, 0ms), 0);
    EXPECT_EQ(tree.tables(), "");
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(Run, RowsWaitUntilTheyAreTaken) {
    ManagerRun run(tree.settings, watch, 50ms);
    EXPECT_FALSE(run.rows_wait());
    tree.post({leave(20041001)}, 20);
    EXPECT_TRUE(run.rows_wait());
    run.apply_all();
    EXPECT_FALSE(run.rows_wait());
    tree.keep(u"hanjyusin01-1.mdb"_s, {leave(20041001)});
    EXPECT_TRUE(run.rows_wait());
}

TEST_F(Run, WithoutAFolderOfExchangeFilesItSaysSo) {
    QDir(store::exchange_folder(tree.settings)).removeRecursively();
    EXPECT_EQ(run_manager(tree.settings, watch, 0ms), 1);
    EXPECT_EQ(told.size(), 1);
}

} // namespace exchange
