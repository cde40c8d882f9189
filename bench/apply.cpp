#include "exchange/apply.h"
#include "base/literals.h"
#include "bench/bare.h"
#include "bench/posted_rows.h"
#include "bench/table.h"
#include "store/schema.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace bench {

using namespace base;

namespace {

struct Files {
    QTemporaryDir folder;
    QString exchange = folder.filePath(u"hanjyusin01.mdb"_s);
    QString rovdata = folder.filePath(u"rovdata.mdb"_s);

    Files() {
        store::Database::create(exchange, store::Kind::Exchange);
        store::Database::create(rovdata, store::Kind::Rovdata);
    }
};

void apply_rows(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        const Files files;
        store::Database exchange = store::Database::open(files.exchange, store::Kind::Exchange);
        store::Database rovdata = store::Database::open(files.rovdata, store::Kind::Rovdata);
        post_many(exchange);
        state.ResumeTiming();
        if (exchange::apply_rows(exchange, rovdata, {}, [] { return true; }) != many_rows)
            state.SkipWithError("not all rows were taken");
        state.PauseTiming();
        state.ResumeTiming();
    }
}

void insert_rows(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        const Files files;
        BareDatabase rovdata(files.rovdata, raw_key(files.rovdata));
        rovdata.exec("pragma synchronous=extra");
        state.ResumeTiming();
        rovdata.exec("begin immediate");
        sqlite3_stmt* const inserts[]{
            rovdata.prepare("insert into rovmei values (?, ?, ?, 1715, 100, 745, '')"),
            rovdata.prepare("insert into kinjisyu values (?, ?, ?, ?)"),
            rovdata.prepare("insert into kinnisu values (?, ?, ?, 0, ?)"),
            rovdata.prepare("insert into kyumei values (?, ?, ?, '有休', '0')"),
        };
        for (int i = 0; i < many_rows; ++i) {
            const Posted row = posted(i);
            sqlite3_stmt* insert = inserts[row.kind - 51];
            sqlite3_bind_int(insert, 1, row.employee);
            sqlite3_bind_int(insert, 2, row.date);
            sqlite3_bind_int(insert, 3, row.number);
            if (row.kind == 52 || row.kind == 53)
                sqlite3_bind_int(insert, 4, row.value);
            sqlite3_step(insert);
            sqlite3_reset(insert);
        }
        rovdata.exec("commit");
        for (sqlite3_stmt* insert : inserts)
            sqlite3_finalize(insert);
    }
}

} // namespace

std::vector<Line> apply() {
    for (auto* made : {benchmark::RegisterBenchmark("apply", apply_rows),
             benchmark::RegisterBenchmark("apply, bare inserts", insert_rows)})
        made->Iterations(1)->Repetitions(5)->Unit(benchmark::kMillisecond);
    return {{"applying 100,000 posted rows", "apply", "apply, bare inserts", 2, 0}};
}

} // namespace bench
