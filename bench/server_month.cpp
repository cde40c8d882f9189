#include "bench/server_month.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "entry/layout.h"
#include "entry/month_load.h"
#include "exchange/run.h"
#include "store/files.h"

#include <benchmark/benchmark.h>

namespace bench {

using namespace base;

entry::MonthSheet opened(const base::Settings& settings, int employee) {
    entry::MonthSheet sheet;
    entry::書式設定(sheet, month_at_hand);
    entry::書式設定_日(sheet);
    store::Database rovdata = store::Database::open(store::rovdata_path(settings), store::Kind::Rovdata);
    read_month(sheet, rovdata, EmployeeKey(employee));
    return sheet;
}

QList<entry::ExchangeRow> rows_of_month(const base::Settings& settings, int employee) {
    entry::MonthSheet sheet = opened(settings, employee);
    for (int r = entry::row::first_day; r <= entry::row::last_day; ++r)
        sheet.mark(r) = u"1"_s;
    return rows_to_post(sheet, {digits(1000 + employee), u"社員"_s, employee}, u"20261130120000"_s);
}

bool saved_and_opened(const base::Settings& settings, const QList<entry::ExchangeRow>& rows, int employee) {
    entry::post_rows(settings, rows);
    const bool applied = exchange::run_manager(settings, {}) == 0;
    benchmark::DoNotOptimize(opened(settings, employee));
    return applied;
}

} // namespace bench
