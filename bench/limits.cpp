#include "bench/bare.h"
#include "bench/companies.h"
#include "bench/desktop.h"
#include "bench/table.h"
#include "limits/look.h"
#include "store/files.h"

#include <benchmark/benchmark.h>

namespace bench {

namespace {

constexpr int month = 202611;
constexpr double wanted = 500'000; ///< microseconds

/// Twelve months of 1,000 employees, read, judged and sorted.
void looked(benchmark::State& state) {
    base::Settings settings = large_company();
    Desktop host;
    store::SettingTables tables{settings};
    frame::TurnLink link{settings, host};
    const frame::Session session{settings, host, tables, link};
    for (auto _ : state)
        if (limits::look_at(session, month).employees.size() != 1000)
            state.SkipWithError("not all employees were judged");
}

/// The same sums and days by the engine alone.
void bare(benchmark::State& state) {
    const QString path = store::rovdata_path(large_company());
    const std::string raw = raw_key(path);
    for (auto _ : state) {
        BareDatabase rovdata(path, raw);
        rovdata.exec("begin");
        sqlite3_stmt* sums = rovdata.prepare(
            "select 年月日, 勤務種類, 時間 from kinjisyu where 社員システム番号 = ? and 年月日 in (20251232, 20260132,"
            " 20260232, 20260332, 20260432, 20260532, 20260632, 20260732, 20260832, 20260932, 20261032, 20261132)");
        sqlite3_stmt* leave = rovdata.prepare("select システム番号, 日数１ from kinnisu where 社員システム番号 = ?"
                                              " and 年月 between 202604 and 202611 and 休暇残業 in (1, 2)");
        sqlite3_stmt* days = rovdata.prepare("select 出社日, 出社時間, 退社時間, 休憩時間 from rovmei"
                                             " where 社員システム番号 = ? and 出社日 between 20261101 and 20261131");
        for (int employee = 1; employee <= 1000; ++employee)
            for (sqlite3_stmt* statement : {sums, leave, days})
                step(statement, {employee});
        for (sqlite3_stmt* statement : {sums, leave, days})
            sqlite3_finalize(statement);
        rovdata.exec("commit");
    }
}

} // namespace

std::vector<Line> limits_of_all() {
    benchmark::RegisterBenchmark("limits, 1,000 x 12 months", looked)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("limits, bare", bare)->Unit(benchmark::kMillisecond);
    return {{"limits of 1,000 employees over 12 months, against their queries", "limits, 1,000 x 12 months",
        "limits, bare", 1.8, wanted}};
}

} // namespace bench
