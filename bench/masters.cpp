#include "bench/bare.h"
#include "bench/companies.h"
#include "bench/table.h"
#include "frame/session.h"
#include "store/files.h"
#include "ui/masters/mst_kinjikan_page.h"
#include "ui/masters/mst_kintype_page.h"
#include "ui/masters/mst_syain_page.h"
#include "ui/qt_host.h"

#include <QFileInfo>
#include <benchmark/benchmark.h>

namespace bench {

namespace {

constexpr int employee = 5000;
constexpr int to_painted = 100'000; ///< microseconds

constexpr const char* all_employees = "select 社員番号, 社員名, システム番号 from syain where trim(社員番号) <> '' "
                                      "order by +システム番号, 社員番号, rowid";
constexpr const char* numbered_employees =
    "select 社員番号, 社員名, システム番号 from syain where trim(社員番号) <> '' order by 社員番号, rowid";
constexpr const char* types = "select 勤務タイプ名, システム番号 from kintype"
                              " group by システム番号, 勤務タイプ名 order by システム番号, 勤務タイプ名";
constexpr const char* categories = "select 種類名, システム番号 from kinsyu order by システム番号, rowid";
constexpr const char* assignments =
    "select システム社員番号, 勤務タイプ from syainkinmu order by システム社員番号, rowid";

struct Desk {
    ui::QtHost host;
    store::SettingTables tables{crowded_company()};
    frame::TurnLink link{crowded_company(), host};
    frame::Session session{crowded_company(), host, tables, link};
};

template <typename Form>
void open_form(benchmark::State& state) {
    Desk desk;
    for (auto _ : state) {
        Form form(desk.session);
        form.Form_Load();
        benchmark::DoNotOptimize(form);
    }
}

/// From nothing to the picture of the page as the person sees it first.
template <typename Page>
void paint_page(benchmark::State& state) {
    Desk desk;
    for (auto _ : state) {
        ui::Whole<Page> page(desk.session);
        page.resize(1366, 708);
        page.show();
        benchmark::DoNotOptimize(page.grab());
    }
}

/// The same rows, each query on an opening of its own as the forms have it.
void read_rows(benchmark::State& state, std::initializer_list<const char*> queries) {
    const QString path = store::rovdata_path(crowded_company());
    const std::string raw = raw_key(path);
    for (auto _ : state)
        for (const char* query : queries)
            BareDatabase(path, raw).step_through(query, {});
}

void read_employees(benchmark::State& state) {
    read_rows(state, {all_employees});
}
void read_assignments(benchmark::State& state) {
    read_rows(state, {types, numbered_employees, assignments});
}
void read_types(benchmark::State& state) {
    read_rows(state, {categories, types});
}

void save_employee(benchmark::State& state) {
    Desk desk;
    masters::mst_syain form(desk.session);
    form.Form_Load();
    int change = 0;
    for (auto _ : state) {
        form.社員表示処理(employee);
        form.atai_Change(masters::mst_syain::name_field, QString::number(++change));
        form.botan_Click(1);
    }
}

/// What a save comes to in one of the files.
void replace_bare(BareDatabase& database) {
    database.exec("pragma synchronous=extra");
    database.exec("begin immediate");
    database.step_through("delete from syain where システム番号=?", {employee});
    database.step_through("insert into syain (システム番号, 社員番号, 社員名, フリガナ, 第１グループ, 第２グループ,"
                          " 第３グループ) values (?, 15000, '社員', 'シャイン', null, null, null)",
        {employee});
    database.exec("commit");
}

void save_employee_bare(benchmark::State& state) {
    const base::Settings& settings = crowded_company();
    const QString rovdata = store::rovdata_path(settings);
    const QString sibling = QFileInfo(rovdata).path() + QStringLiteral("/sibling.mdb");
    const QString allsystem = store::allsystem_path(settings);
    std::vector<std::pair<QString, std::string>> copies;
    for (const QString& path : {store::comsys_path(settings), rovdata, sibling})
        copies.emplace_back(path, raw_key(path));
    const std::string raw_allsystem = raw_key(allsystem);
    for (auto _ : state) {
        BareDatabase(rovdata, copies[1].second).step_through("select * from syain where システム番号=?", {employee});
        BareDatabase(allsystem, raw_allsystem).step_through("select 個別dataファイル from allsystem", {});
        for (const auto& [path, raw] : copies) {
            BareDatabase copy(path, raw);
            replace_bare(copy);
        }
        BareDatabase(rovdata, copies[1].second).step_through(all_employees, {});
    }
}

} // namespace

std::vector<Line> masters() {
    for (const auto& [name, work] : std::initializer_list<std::pair<const char*, void (*)(benchmark::State&)>>{
             {"employees", open_form<masters::mst_syain>},
             {"employees, painted", paint_page<ui::mst_syain_page>},
             {"employees, bare", read_employees},
             {"assignment", open_form<masters::mst_kintype>},
             {"assignment, painted", paint_page<ui::mst_kintype_page>},
             {"assignment, bare", read_assignments},
             {"work types", open_form<masters::mst_kinjikan>},
             {"work types, painted", paint_page<ui::mst_kinjikan_page>},
             {"work types, bare", read_types},
             {"save employee", save_employee},
             {"save employee, bare", save_employee_bare},
         })
        benchmark::RegisterBenchmark(name, work);
    return {
        {"opening the employees, 10,000", "employees", "employees, bare", 3, 0},
        {"the same to the painted list", "employees, painted", "employees, bare", 0, to_painted},
        {"opening the assignment, 10,000 employees, 200 types", "assignment", "assignment, bare", 3, 0},
        {"the same to the painted list", "assignment, painted", "assignment, bare", 0, to_painted},
        {"opening the work types, 200", "work types", "work types, bare", 3, 0},
        {"the same to the painted grid", "work types, painted", "work types, bare", 0, to_painted},
        {"saving an employee into three files of 10,000", "save employee", "save employee, bare", 3, 0},
    };
}

} // namespace bench
