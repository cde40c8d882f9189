// The manager over a data server that is in trouble, and beside another PC's. Without a server at hand
// (scripts/with-server) there is nothing to see.

#include "exchange/run.h"
#include "exchange_tree.h"
#include "support/server_proxy.h"

#ifdef Q_OS_LINUX

namespace exchange {

using namespace std::chrono_literals;

namespace {

/// The tree's databases, reached in these words.
void reach(const Tree& tree, const Tree& databases, const QByteArray& words) {
    for (const auto path :
        {+[](const Tree& of) { return of.rovdata_path(); }, +[](const Tree& of) { return of.exchange_path(); }})
        put_bytes(path(tree), bytes_of(store::ServerPlace{words, store::place_at(path(databases))->schema}));
}

/// A save of one day, in which every value tells the save it comes from.
Rows day_save(int save) {
    return {day_row(7, 20041001, u"830 1715 100 %1"_s.arg(save)), u"52|20041001|7|1|%1|8"_s.arg(8 + save),
        u"52|20041001|7|2|%1|8"_s.arg(1 + save), u"53|200410|7|1|1|%1|0|0"_s.arg(1 + save),
        u"54|20041001|7|%1|公休|0"_s.arg(1 + save)};
}

using support::Trouble, support::Troubled;

class ManagerInTrouble : public testing::TestWithParam<Troubled> {
protected:
    void SetUp() override {
        if (support::data_server().isEmpty())
            GTEST_SKIP() << "no server";
        if (GetParam().trouble != Trouble::Full)
            return;
        disk.emplace("size=160k");
        if (disk->is_there())
            disk->take(schema_of_tables(), targets);
        else
            GTEST_SKIP() << "only the administrator has such a disk";
    }
    int run() const { return run_manager(tree.settings, Watch(), {.manager = 0ms}); }
    QString schema_of_tables() const { return store::place_at(tree.rovdata_path())->schema; }

    static inline const QStringList targets{u"rovmei"_s, u"kinjisyu"_s, u"kinnisu"_s, u"kyumei"_s};
    Tree tree;
    std::optional<support::ServerDisk> disk;
};

} // namespace

TEST_P(ManagerInTrouble, AppliesASaveWholeOrNotAtAllAndOnceInTheEnd) {
    support::ServerProxy proxy;
    const QString schema = schema_of_tables();
    reach(tree, tree, proxy.connection() + GetParam().words);
    std::string posted, tables[2];
    for (const int save : {1, 0}) {
        tree.post(day_save(save));
        ASSERT_EQ(run(), 0);
        tables[save] = tree.tables();
    }
    int message = 0, failures = 0;
    for (bool came = true; came; message += GetParam().step()) {
        ASSERT_LT(message, 1500);
        if (disk)
            support::psql(u"truncate \"%1\"."_s.arg(schema) + targets.join(u",\"%1\"."_s.arg(schema)));
        const int save = message % 2 == 0 ? 1 : 0;
        const std::string before = tree.tables();
        tree.post(day_save(save));
        posted = tree.left();
        proxy.trouble_behind(message, GetParam().trouble);
        const int status = run();
        failures += status;
        came = proxy.end_trouble();
        const std::string left = tree.left();
        const bool applied = tree.tables() == tables[save];
        EXPECT_TRUE(applied || tree.tables() == before) << "half behind message " << message;
        EXPECT_TRUE(left == posted || (left.empty() && applied)) << "lost behind message " << message;
        EXPECT_TRUE(status == 1 || applied) << "untold behind message " << message;
        EXPECT_EQ(run(), 0);
        EXPECT_EQ(tree.left(), "");
        EXPECT_EQ(tree.tables(), tables[save]) << "trouble behind message " << message;
    }
    EXPECT_GT(message, 20);
    EXPECT_GT(failures, 0);
}

INSTANTIATE_TEST_SUITE_P(Of, ManagerInTrouble,
    testing::Values(Troubled{Trouble::Cut, 1}, Troubled{Trouble::Death, 41},
        Troubled{Trouble::Silence, 41, support::impatient}, Troubled{Trouble::Full, 7}));

TEST(ManagersOfTwoPcs, CountEveryRowOnce) {
    if (support::data_server().isEmpty())
        GTEST_SKIP() << "no server";
    const Tree first, second, alone;
    reach(second, first, support::data_server());
    std::vector<std::unique_ptr<QProcess>> managers;
    for (int round = 1; round <= 6; ++round) {
        first.post(day_save(round));
        alone.post(day_save(round));
        for (const Tree* tree : {&first, &second})
            managers.push_back(support::start_program(qEnvironmentVariable("ROVENA_BIN") + u"/jyusinkanri"_s,
                {u"--root"_s, tree->settings.server_root, u"--local"_s, tree->settings.local_root}));
    }
    for (const auto& manager : managers)
        EXPECT_EQ(support::status_of(*manager), 0);
    run_manager(alone.settings, Watch());
    EXPECT_EQ(first.left(), "");
    EXPECT_EQ(first.tables(), alone.tables());
}

} // namespace exchange

#endif
