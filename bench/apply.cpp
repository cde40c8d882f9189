#include "exchange/apply.h"
#include "base/literals.h"
#include "bench/bare.h"
#include "bench/table.h"
#include "store/schema.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace bench {

using namespace base;

namespace {

constexpr int rows = 100'000;
constexpr int days = 31;
constexpr int categories = 4;

/// Posted as saves post them: for an employee and month the days, then the hours of each day's categories, the counts
/// and the day kinds. Numbers of the rows of one save:
constexpr int day_rows = days + 1;
constexpr int hour_rows = day_rows * categories;
constexpr int count_rows = 8;
constexpr int save_rows = day_rows + hour_rows + count_rows + days;

/// One row of a save, as numbers: kind, employee, date, and what it carries.
struct Posted {
    int kind;
    int employee;
    int date;
    int value;
    int number;
};

Posted posted(int index) {
    const int employee = 1 + index / save_rows;
    int place = index % save_rows;
    const auto date = [](int day) { return 20261100 + std::min(day, days) + (day > days ? 1 : 0); };
    if (place < day_rows)
        return {51, employee, date(place + 1), 1715, 0};
    place -= day_rows;
    if (place < hour_rows)
        return {52, employee, date(place / categories + 1), 200 + place % categories, place % categories + 1};
    place -= hour_rows;
    if (place < count_rows)
        return {53, employee, 202611, 5, place + 1};
    return {54, employee, date(place - count_rows + 1), 0, 3};
}

struct Files {
    QTemporaryDir folder;
    QString exchange = folder.filePath(u"hanjyusin01.mdb"_s);
    QString rovdata = folder.filePath(u"rovdata.mdb"_s);

    Files() {
        store::Database::create(exchange, store::Kind::Exchange);
        store::Database::create(rovdata, store::Kind::Rovdata);
    }
};

void post(store::Database& exchange) {
    store::Transaction transaction(exchange);
    store::Statement day = exchange.prepare(
        R"(insert into jyusin ("2","3","4","5","6","7","8","9","10","11","12","13","14","15","16")
           values ('51','0','20261130120000','20261130120000','1',?,'社員','0',?,'830',?,?,'100','745',''))");
    store::Statement hours =
        exchange.prepare(R"(insert into jyusin ("2","3","4","5","6","7") values ('52',?,?,?,?,'8'))");
    store::Statement count =
        exchange.prepare(R"(insert into jyusin ("2","3","4","5","6","7","8","9") values ('53',?,?,?,'0',?,'0','0'))");
    store::Statement leave =
        exchange.prepare(R"(insert into jyusin ("2","3","4","5","6","7") values ('54',?,?,?,'有休','0'))");
    for (int i = 0; i < rows; ++i) {
        const Posted row = posted(i);
        if (row.kind == 51)
            day.bind(row.employee, row.date, row.date, row.value).run();
        else if (row.kind == 54)
            leave.bind(row.date, row.employee, row.number).run();
        else
            (row.kind == 52 ? hours : count).bind(row.date, row.employee, row.number, row.value).run();
    }
    transaction.commit();
}

void apply_rows(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        const Files files;
        store::Database exchange = store::Database::open(files.exchange, store::Kind::Exchange);
        store::Database rovdata = store::Database::open(files.rovdata, store::Kind::Rovdata);
        post(exchange);
        state.ResumeTiming();
        if (exchange::apply_rows(exchange, rovdata, {}, [] { return true; }) != rows)
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
        for (int i = 0; i < rows; ++i) {
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
