#include "base/literals.h"
#include "bench/bare.h"
#include "bench/companies.h"
#include "bench/table.h"
#include "store/files.h"
#include "store/setting_tables.h"

#include <benchmark/benchmark.h>

namespace bench {

using namespace base;

namespace {

const QString key = u"月初日付"_s;

void read_setting(benchmark::State& state) {
    store::SettingTables tables(small_company());
    for (auto _ : state)
        benchmark::DoNotOptimize(tables.設定読込(u"kihon"_s, key));
}

void read_setting_bare(benchmark::State& state) {
    const QString path = store::comsys_path(small_company());
    const std::string raw = raw_key(path);
    const QByteArray key_bytes = key.toUtf8();
    for (auto _ : state) {
        BareDatabase comsys(path, raw);
        sqlite3_stmt* query = comsys.prepare("select データ from kihon where 項目名=? order by rowid limit 1");
        sqlite3_bind_text(query, 1, key_bytes.constData(), int(key_bytes.size()), SQLITE_STATIC);
        sqlite3_step(query);
        benchmark::DoNotOptimize(sqlite3_column_text(query, 0));
        sqlite3_finalize(query);
    }
}

} // namespace

std::vector<Line> setting_read() {
    benchmark::RegisterBenchmark("setting read", read_setting);
    benchmark::RegisterBenchmark("setting read, bare", read_setting_bare);
    return {{"one setting (設定読込) with open and close", "setting read", "setting read, bare", 1.5, 0}};
}

} // namespace bench
