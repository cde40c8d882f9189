#include "base/company_month.h"
#include "bench/bare.h"
#include "bench/companies.h"
#include "bench/desktop.h"
#include "bench/table.h"
#include "store/files.h"
#include "ui/grid/grid_view.h"
#include "ui/overview/ent_itiran_page.h"

#include <QScrollBar>
#include <benchmark/benchmark.h>

namespace bench {

namespace {

constexpr int to_painted = 150'000; ///< microseconds, as all here
constexpr int all_looked_at = 1'000'000;
constexpr int a_frame = 16'000;
constexpr QSize page_size(1366, 708);

struct Desk {
    Desktop host;
    store::SettingTables tables{large_company()};
    frame::TurnLink link{large_company(), host};
    frame::Session session{large_company(), host, tables, link};
    frame::MonthInHand in_hand{.month = last_month};
};

/// From nothing to the picture of the page as the person sees it first.
void open_overview(benchmark::State& state) {
    Desk desk;
    for (auto _ : state) {
        ui::Whole<ui::ent_itiran_page> page(desk.session, desk.in_hand);
        page.resize(page_size);
        page.show();
        benchmark::DoNotOptimize(page.grab());
    }
}

void look_at_all(benchmark::State& state) {
    Desk desk;
    for (auto _ : state) {
        overview::ent_itiran form(desk.session, desk.in_hand);
        form.Form_Load();
        form.look_to_the_end();
        benchmark::DoNotOptimize(form.against());
    }
}

void scroll_a_step(benchmark::State& state) {
    Desk desk;
    ui::Whole<ui::ent_itiran_page> page(desk.session, desk.in_hand);
    page.resize(page_size);
    page.show();
    auto* grid = page.findChild<ui::GridView*>();
    QScrollBar* bar = grid->verticalScrollBar();
    for (auto _ : state) {
        bar->setValue(bar->value() < bar->maximum() ? bar->value() + 1 : bar->minimum());
        benchmark::DoNotOptimize(grid->viewport()->grab());
    }
}

void read_month_bare(benchmark::State& state) {
    const base::CompanyMonth month(last_month / 100, last_month % 100, 1);
    const QString path = store::rovdata_path(large_company());
    const std::string raw = raw_key(path);
    for (auto _ : state) {
        BareDatabase rovdata(path, raw);
        rovdata.exec("begin");
        rovdata.step_through("select d.* from syain s cross join rovmei d on d.社員システム番号 = s.システム番号"
                             " and 出社日 between ? and ?",
            {month.start_key(), month.total_key()});
        rovdata.step_through("select d.* from syain s cross join kyumei d on d.社員システム番号 = s.システム番号"
                             " and 年月日 between ? and ?",
            {month.start_key(), month.end_key()});
        rovdata.exec("commit");
    }
}

} // namespace

std::vector<Line> overview() {
    benchmark::RegisterBenchmark("overview, painted", open_overview);
    benchmark::RegisterBenchmark("overview, looked at", look_at_all);
    benchmark::RegisterBenchmark("overview, scrolled", scroll_a_step);
    benchmark::RegisterBenchmark("overview, bare", read_month_bare);
    return {
        {"opening the month overview, 1,000 employees, to painted", "overview, painted", "overview, bare", 0,
            to_painted},
        {"what is off in the month of 1,000 employees", "overview, looked at", "overview, bare", 0, all_looked_at},
        {"one step of its scroll bar, painted", "overview, scrolled", "overview, bare", 0, a_frame},
    };
}

} // namespace bench
