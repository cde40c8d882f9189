// Saves, starts of the program and managers around the exchange files, each a process of its own: one stopped, killed
// or failing at every step it takes, and a crowd of them. Whatever happens, every confirmed save is in the tables in
// the end, the later one of two that met one day.

#include "children.h"

#include <map>

namespace exchange {

using namespace std::chrono_literals;

namespace {

constexpr int first_day = 20041001, early_day = 20041002, other_day = 20041003, stopped_day = 20041004;

class Company {
public:
    QString root() const { return tree.settings.server_root; }
    int run(const QString& act, const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment()) {
        return ends(*start_child({act, root()}, environment));
    }

    /// A program may find another in its way, and says so; a file it finds always.
    void confirm(int ended, int day = 0, int kind = 0) {
        EXPECT_TRUE(ended == ended_well || ended == ended_busy) << ended;
        if (ended == ended_well && day != 0)
            confirmed[day] = kind;
    }

    void expect_all_confirmed() {
        EXPECT_EQ(run(u"start"_s), 0);
        EXPECT_EQ(run(u"manager"_s), 0);
        std::map<int, int> stored;
        const QStringList rows =
            support::rows_of(tree.rovdata_path(), store::Kind::Rovdata, "select 年月日, システム番号 from kyumei");
        for (const QString& row : rows)
            stored[row.section(u'|', 0, 0).toInt()] = row.section(u'|', 1).toInt();
        EXPECT_EQ(stored, confirmed);
        EXPECT_EQ(QDir(tree.kept_folder()).entryList({u"*.mdb"_s, u"*.new"_s}), QStringList());
        EXPECT_EQ(QDir(store::exchange_folder(tree.settings)).entryList({u"*.new"_s}), QStringList());
    }

    Tree tree;
    std::map<int, int> confirmed; ///< the last confirmed kind of each day
};

/// One program is stopped while the others act. Somebody has opened the exchange file for a save before all that, and
/// saves while that one stands still.
class Scene : public Company {
public:
    Scene(const QString& program, int step) : m_program(program) {
        confirm(post_leave(tree.settings, first_day, 1), first_day, 1);
        store::Database early = store::Database::open(tree.exchange_path(), store::Kind::Exchange, 50ms);
        meanwhile(u"start"_s);
        leave_few_files();
        const QStringList date_and_kind{QString::number(stopped_day), u"5"_s};
        const auto stopped =
            start_child(QStringList{program, root()} + (program == u"post"_s ? date_and_kind : QStringList()),
                support::shimmed(u"STOP_BEFORE_STEP"_s, step));
        was_stopped = stops(*stopped);
        save_through(early);
        meanwhile(u"start"_s);
        confirm(post_leave(tree.settings, other_day, 4), other_day, 4);
        meanwhile(u"manager"_s);
        confirm(ends(*stopped), program == u"post"_s ? stopped_day : 0, 5);
    }

    bool was_stopped = false;

private:
    void meanwhile(const QString& act) {
        if (act != m_program)
            confirm(run(act));
    }

    /// Files that nothing happens to would only cost steps.
    void leave_few_files() const {
        for (int n = 3; n <= store::exchange_file_count && m_program == u"manager"_s; ++n)
            QFile::remove(tree.exchange_path(n));
    }

    void save_through(store::Database& early) {
        try {
            store::Transaction transaction(early);
            insert_leave(early, first_day, 2);
            insert_leave(early, early_day, 3);
            transaction.commit();
            confirm(ended_well, first_day, 2);
            confirm(ended_well, early_day, 3);
        } catch (const store::Error& error) {
            EXPECT_EQ(error.code(), store::Code::Busy) << error.what();
        }
    }

    QString m_program;
};

class Interleaving : public testing::TestWithParam<const char*> {};

} // namespace

TEST_P(Interleaving, EveryConfirmedSaveIsInTheTablesAtWhateverStepAProgramStands) {
    ROVENA_NEEDS_THE_SHIM;
    int steps = 0;
    for (bool stopped = true; stopped; ++steps) {
        SCOPED_TRACE(std::string(GetParam()) + " before step " + std::to_string(steps + 1));
        Scene scene(QString::fromLatin1(GetParam()), steps + 1);
        scene.expect_all_confirmed();
        stopped = scene.was_stopped;
    }
    EXPECT_GT(steps, 10);
}

INSTANTIATE_TEST_SUITE_P(Stopped, Interleaving, testing::Values("post", "start", "manager"));

// Before it are a file with rows, one that was used, a damaged one and none where one should be.
TEST(Start, KilledOrWithADiskThatFailsAtEveryChangeItLosesNothingAndLeavesNoLitter) {
    ROVENA_NEEDS_THE_SHIM;
    for (const QString& variable : {u"KILL_BEFORE_CHANGE"_s, u"FAIL_FROM_CHANGE"_s}) {
        int n = 0;
        for (int ended = -1; ended != ended_well;) {
            SCOPED_TRACE(variable.toStdString() + "=" + std::to_string(++n));
            Company company;
            const Tree& tree = company.tree;
            company.confirm(post_leave(tree.settings, first_day, n), first_day, n);
            tree.post({u"99"_s}, 2);
            store::Database::open(tree.exchange_path(2), store::Kind::Exchange).exec("delete from jyusin");
            const QByteArray damaged(5000, 'x');
            put_bytes(tree.exchange_path(3), damaged);
            QFile::remove(tree.exchange_path(4));
            ended = company.run(u"start"_s, support::shimmed(variable, n));
            EXPECT_NE(ended, ended_read_only);
            company.expect_all_confirmed();
            const QDir kept(tree.kept_folder(), u"hanjyusin03*.kowareta"_s);
            EXPECT_TRUE(!kept.isEmpty() && bytes_of(kept.filePath(kept.entryList().first())) == damaged);
        }
        EXPECT_GT(n, 20);
    }
}

// ROVENA_CROWD_SAVES sets how many each writer makes.
TEST(Crowd, OfWritersStartsManagersAndReadersKeepsEverySave) {
    const int wanted = qEnvironmentVariableIntValue("ROVENA_CROWD_SAVES");
    const int saves = wanted > 0 ? wanted : 100;
    Company company;
    std::vector<std::unique_ptr<QProcess>> writers, others;
    for (const QString& act : {u"start"_s, u"start"_s, u"manager"_s, u"manager"_s, u"reader"_s})
        others.push_back(start_child({act, company.root(), u"again"_s}));
    for (int writer = 1; writer <= 3; ++writer) {
        writers.push_back(start_child({u"writer"_s, company.root(), QString::number(writer), QString::number(saves)}));
        for (int save = 1; save <= saves; ++save)
            company.confirmed[date_of_save(writer, save)] = save;
    }
    for (const auto& writer : writers)
        EXPECT_EQ(ends(*writer), ended_well);
    QDir().mkpath(company.root() + u"/done"_s);
    for (const auto& other : others)
        EXPECT_EQ(ends(*other), ended_well);
    company.expect_all_confirmed();
}

} // namespace exchange
