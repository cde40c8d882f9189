// What is done on a data server, beside the same statements through libpq alone.

#include "bench/table.h"
#include "store/server_place.h"

#include <QDir>

#if __has_include(<libpq-fe.h>)

#include "base/literals.h"
#include "bench/bare_server.h"
#include "bench/posted_rows.h"
#include "bench/server_company.h"
#include "bench/server_month.h"
#include "exchange/run.h"
#include "reports/tallies/work_time_list.h"
#include "store/files.h"
#include "tests/support/fake_host.h"

#include <benchmark/benchmark.h>

namespace bench {

using namespace base;

namespace {

constexpr int employee = 7;
const CompanyMonth& month = month_at_hand;

template <int employees, int months>
void load(benchmark::State& state) {
    const base::Settings& settings = server_company(employees, months).settings;
    for (auto _ : state)
        benchmark::DoNotOptimize(opened(settings, employee));
}

void prepare_load(BareServer& server) {
    server.prepare("begin", "begin isolation level repeatable read read only");
    server.prepare("commit", "commit");
    server.prepare("type", "select 勤務タイプ from syainkinmu where システム社員番号=$1 order by rowid limit 1");
    server.prepare("name", "select 勤務タイプ名 from kintype where システム番号=$1 order by rowid limit 1");
    server.prepare("bands", "select * from kintype, kinsyu where kintype.システム番号=$1 and"
                            " kinsyu.システム番号=時間種類 order by 曜日, 連番, 開始時間, 終了時間, 時間計算");
    server.prepare("kinds", "select * from kyutype order by 休出 desc, 通常 desc, システム番号");
    server.prepare(
        "days", "select * from rovmei where 社員システム番号=$1 and 出社日 between $2 and $3 order by 出社日");
    server.prepare(
        "hours", "select * from kinjisyu where 社員システム番号=$1 and 年月日 between $2 and $3 order by 年月日");
    server.prepare(
        "leave", "select * from kyumei where 社員システム番号=$1 and 年月日 between $2 and $3 order by 年月日");
    server.prepare("counts", "select * from kinnisu where 社員システム番号=$1 and 年月=$2");
}

void load_once(BareServer& server) {
    server.run("begin");
    server.run("type", {employee});
    server.run("name", {1});
    server.run("bands", {1});
    server.run("kinds");
    for (const char* table : {"days", "hours", "leave"})
        server.run(table, {employee, month.start_key(), month.total_key()});
    server.run("counts", {employee, month.month_key()});
    server.run("commit");
}

void load_bare(benchmark::State& state) {
    BareServer server = server_company(1000, 24).bare();
    prepare_load(server);
    for (auto _ : state)
        load_once(server);
}

// --- a month saved until it can be read again

void save(benchmark::State& state) {
    const base::Settings& settings = server_company(1000, 24).settings;
    const QList<entry::ExchangeRow> rows = rows_of_month(settings, employee);
    for (auto _ : state) {
        if (!saved_and_opened(settings, rows, employee))
            state.SkipWithError("the rows weren't applied");
    }
}

QList<QByteArray> texts_of(const entry::ExchangeRow& row) {
    QList<QByteArray> texts;
    for (const QString& field : row)
        texts << field.toUtf8();
    texts.resize(15);
    return texts;
}

void save_bare(benchmark::State& state) {
    const ServerCompany& company = server_company(1000, 24);
    QList<QList<QByteArray>> rows;
    for (const entry::ExchangeRow& row : rows_of_month(company.settings, employee))
        rows << texts_of(row);
    BareServer server = company.bare();
    prepare_load(server);
    server.prepare("begin writing", "begin");
    prepare_posting(server, company.posted_in());
    prepare_applying(server);
    for (auto _ : state) {
        server.run("begin writing");
        for (const QList<QByteArray>& row : rows)
            server.run_texts("post", row);
        server.run("commit");
        server.run("begin writing");
        server.run("posted");
        for (const QList<QByteArray>& row : rows)
            apply_one(server, row);
        server.run("taken");
        server.run("commit");
        load_once(server);
    }
}

// --- very many rows

void apply(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        const ServerCompany company(0, 0);
        store::Database posted =
            store::Database::open(store::exchange_path(company.settings, 1), store::Kind::Exchange);
        post_many(posted);
        state.ResumeTiming();
        if (exchange::run_manager(company.settings, {}) != 0)
            state.SkipWithError("the rows weren't applied");
    }
}

void insert(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        const ServerCompany company(0, 0);
        BareServer server = company.bare();
        prepare_inserts(server);
        state.ResumeTiming();
        server.exec("begin");
        insert_many(server);
        server.exec("commit");
    }
}

// --- a list of all employees

template <int employees>
struct List {
    const ServerCompany& company = server_company(employees, 1);
    base::Settings settings = company.settings;
    support::FakeHost host;
    store::SettingTables tables{settings};
    frame::TurnLink link{settings, host};
    frame::Session session{settings, host, tables, link};
    reports::Report report;

    List() {
        report.帳票番号 = 5;
        report.conditions.ymd = {u"2026/11/1"_s, u"2026/11/30"_s};
    }
    void tally() {
        reports::Work work{session, {}, {}};
        集計_勤務時間一覧表(report, work);
    }
};

template <int employees, int times>
void list(benchmark::State& state) {
    static List<employees> the_list;
    for (auto _ : state)
        for (int i = 0; i < times; ++i)
            the_list.tally();
}

template <int employees>
void list_bare(benchmark::State& state) {
    BareServer server = server_company(employees, 1).bare();
    prepare_load(server);
    server.prepare("staff", "select システム番号, 社員番号, 社員名 from syain where システム番号 between $1 and $2");
    server.prepare("next", "select 社員システム番号 from rovmei where 社員システム番号 > $1"
                           " order by 社員システム番号 limit 1");
    for (auto _ : state) {
        server.run("begin");
        server.run("staff", {1, employees});
        for (int one = 1; one <= employees; ++one) {
            server.run("next", {one - 1});
            for (const char* table : {"days", "hours", "leave"})
                server.run(table, {one, month.start_key(), month.end_key()});
        }
        server.run("commit");
    }
}

} // namespace

std::vector<Line> on_server() {
    benchmark::RegisterBenchmark("server, month load, 1,000 x 24", load<1000, 24>);
    benchmark::RegisterBenchmark("server, month load, 1,000 x 24, bare", load_bare);
    benchmark::RegisterBenchmark("server, month load, 10 x 1", load<10, 1>);
    benchmark::RegisterBenchmark("server, month save", save);
    benchmark::RegisterBenchmark("server, month save, bare", save_bare);
    benchmark::RegisterBenchmark("server, list, 1,000", list<1000, 1>);
    benchmark::RegisterBenchmark("server, list, 1,000, bare", list_bare<1000>);
    benchmark::RegisterBenchmark("server, list, 10 x 1,000", list<1000, 10>);
    benchmark::RegisterBenchmark("server, list, 10,000", list<10'000, 1>);
    benchmark::RegisterBenchmark("server, list, 10,000, bare", list_bare<10'000>);
    for (auto* made : {benchmark::RegisterBenchmark("server, apply", apply),
             benchmark::RegisterBenchmark("server, apply, bare inserts", insert)})
        made->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);
    return {
        {"on a server: month load, 1,000 employees x 24 months", "server, month load, 1,000 x 24",
            "server, month load, 1,000 x 24, bare", 1.5, 0},
        {"the same beside 10 employees x 1 month", "server, month load, 1,000 x 24", "server, month load, 10 x 1", 1.3,
            0},
        {"a month saved until it can be read again", "server, month save", "server, month save, bare", 2, 0},
        {"applying 100,000 posted rows, against bare inserts", "server, apply", "server, apply, bare inserts", 2, 0},
        {"work time list, 1,000 employees", "server, list, 1,000", "server, list, 1,000, bare", 1.8, 0},
        {"work time list, 10,000 employees", "server, list, 10,000", "server, list, 10,000, bare", 1.8, 0},
        {"work time list, 10,000 employees, against ten of 1,000", "server, list, 10,000", "server, list, 10 x 1,000",
            1.1, 0},
    };
}

bool server_at_hand() {
    return store::place_for_new(QDir::tempPath() + u"/any.mdb"_s, store::Kind::Comsys).has_value();
}

} // namespace bench

#else

namespace bench {

std::vector<Line> on_server() {
    return {};
}

bool server_at_hand() {
    return false;
}

} // namespace bench

#endif
