#include "base/literals.h"
#include "base/numbers.h"
#include "bench/bare.h"
#include "bench/companies.h"
#include "bench/table.h"
#include "entry/calculation.h"
#include "entry/draft_store.h"
#include "entry/findings.h"
#include "entry/layout.h"
#include "store/files.h"

#include <QDir>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace bench {

using namespace base;

namespace {

const CompanyMonth month(last_month / 100, last_month % 100, 1);
constexpr int typed_days = 22;

/// A PC of its own on the disk: what a draft costs is the way to the disk.
struct Pc {
    QTemporaryDir folder;
    base::Settings settings;
    Pc() {
        settings.local_root = folder.path();
        QDir().mkpath(QFileInfo(store::drafts_path(settings)).path());
    }
};

entry::MonthSheet typed_month() {
    entry::MonthSheet sheet;
    書式設定(sheet, month);
    書式設定_日(sheet);
    sheet.category_list = {{1, u"普通"_s}};
    sheet.hyou.SetCols(entry::col::first_category + 1);
    sheet.hyou(entry::row::category_number, entry::col::first_category) = u"1"_s;
    for (auto& weekday : sheet.band_table)
        weekday[1] = {.start = minutes(510), .end = minutes(1050), .category = 1};
    for (int r = 1; r <= typed_days; ++r) {
        sheet.hyou(r, entry::col::clock_in) = u"8:30"_s;
        sheet.hyou(r, entry::col::clock_out) = u"17:45"_s;
        sheet.entry_cell = {r, entry::col::clock_out};
        出勤集計処理(sheet, r);
    }
    return sheet;
}

entry::Draft draft_of(const entry::MonthSheet& sheet, qint64 employee) {
    return {base::EmployeeKey(employee), draft_days(sheet, entry::MonthAsRead{}, {}), {}};
}

/// All that leaving a cell costs: the differences to the month as it was read, and the whole draft onto the disk.
void keep_a_draft(benchmark::State& state) {
    const Pc pc;
    const entry::MonthSheet sheet = typed_month();
    for (auto _ : state)
        keep_draft(pc.settings, draft_of(sheet, 1), month);
}

void look_at_a_month(benchmark::State& state) {
    const entry::MonthSheet sheet = typed_month();
    for (auto _ : state)
        benchmark::DoNotOptimize(findings(sheet));
}

const base::Settings& pc_with_drafts() {
    static const Pc pc;
    static const bool filled = [] {
        const entry::MonthSheet sheet = typed_month();
        for (qint64 employee = 1; employee <= 1000; ++employee)
            keep_draft(pc.settings, draft_of(sheet, employee), month);
        return true;
    }();
    benchmark::DoNotOptimize(filled);
    return pc.settings;
}

void start_with_drafts(benchmark::State& state) {
    const base::Settings& settings = pc_with_drafts();
    for (auto _ : state) {
        entry::put_away_damaged_drafts(settings);
        benchmark::DoNotOptimize(entry::drafts_waiting(settings));
    }
}

void read_drafts_bare(benchmark::State& state) {
    const QString path = store::drafts_path(pc_with_drafts());
    const std::string raw = raw_key(path);
    for (auto _ : state) {
        BareDatabase drafts(path, raw);
        drafts.step_through("select * from sitagaki", {});
    }
}

} // namespace

std::vector<Line> drafts() {
    benchmark::RegisterBenchmark("a draft of 22 days kept", keep_a_draft);
    benchmark::RegisterBenchmark("look at a month", look_at_a_month);
    benchmark::RegisterBenchmark("1,000 drafts waiting", start_with_drafts);
    benchmark::RegisterBenchmark("1,000 drafts waiting, bare", read_drafts_bare);
    return {
        {"a draft of 22 days onto the disk", "a draft of 22 days kept", "look at a month", 0, 5000},
        {"the look before a save", "look at a month", "day and month calculation", 0, 2000},
        {"a start with 1,000 drafts waiting", "1,000 drafts waiting", "1,000 drafts waiting, bare", 2, 0},
    };
}

} // namespace bench
