#include "base/literals.h"
#include "base/numbers.h"
#include "bench/companies.h"
#include "bench/desktop.h"
#include "bench/table.h"
#include "frame/turn_link.h"
#include "intake/accept.h"
#include "store/files.h"

#include <benchmark/benchmark.h>

namespace bench {

using namespace base;

namespace {

constexpr int employees = 1000;
constexpr int days = 31; ///< of the month behind the company's last
const QDate first(2026, 12, 1);

base::Settings& company_without_month() {
    return company(employees, 2);
}

/// A line an employee and day, as a recorder writes them.
QByteArray recorder_bytes() {
    auto rovdata = store::Database::open(store::rovdata_path(company_without_month()), store::Kind::Rovdata);
    auto query = rovdata.prepare("select 社員番号 from syain where 社員番号 <> ''");
    QByteArray bytes("社員番号,日付,出勤,退勤\r\n");
    while (query.step())
        for (int day = 0; day < days; ++day)
            bytes += query.row().text(0).toUtf8() + first.addDays(day).toString(u",yyyy/MM/dd,"_s).toUtf8() +
                     (day % 7 == 0 ? "22:00,6:15" : "8:28,18:03") + "\r\n";
    return bytes;
}

/// The main PC of a company where the manager isn't started.
struct MainPc {
    base::Settings settings = company_without_month();
    Desktop host;
    store::SettingTables tables{settings};
    frame::TurnLink link{settings, host};
    frame::Session session{settings, host, tables, link};
};

intake::Preview seen(const QByteArray& bytes) {
    const intake::RecorderFile file = intake::read_recorder_file(bytes);
    return preview(file, guessed_profile(file), {company_without_month(), first.addDays(days)});
}

void read(benchmark::State& state) {
    const QByteArray bytes = recorder_bytes();
    for (auto _ : state)
        if (seen(bytes).count(intake::State::New) != employees * days)
            state.SkipWithError("not all lines were understood");
}

void accept(benchmark::State& state) {
    const intake::Preview preview = seen(recorder_bytes());
    for (auto _ : state) {
        MainPc pc;
        const auto taken = accept(pc.session, preview, days_to_accept(preview, false), intake::Into::Tables);
        if (taken.count(intake::Became::Posted) != employees * days)
            state.SkipWithError("not all days were posted");
        state.PauseTiming();
        store::Database::open(store::exchange_path(pc.settings, 1), store::Kind::Exchange).exec("delete from jyusin");
        state.ResumeTiming();
    }
}

} // namespace

std::vector<Line> recorder_import() {
    for (auto* made : {benchmark::RegisterBenchmark("recorder file read", read),
             benchmark::RegisterBenchmark("recorder file accepted", accept)})
        made->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);
    return {{"a recorder's file of 31,000 days read", "recorder file read", "1,000 drafts waiting", 0, 1e6},
        {"its days calculated and posted", "recorder file accepted", "recorder file read", 0, 0}};
}

} // namespace bench
