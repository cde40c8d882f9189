#include "entry/month_load.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "bench/bare.h"
#include "bench/companies.h"
#include "bench/desktop.h"
#include "bench/table.h"
#include "common/closed_months.h"
#include "entry/day_kinds.h"
#include "entry/layout.h"
#include "entry/saving.h"
#include "entry/work_type.h"
#include "frame/turn_link.h"
#include "store/files.h"

#include <QFile>
#include <benchmark/benchmark.h>

namespace bench {

using namespace base;

namespace {

constexpr int employee = 7;
const CompanyMonth month(last_month / 100, last_month % 100, 1);

/// What the choice of an employee does.
void load(entry::MonthSheet& sheet, const base::Settings& settings, entry::MonthInTables& in_tables) {
    書式設定(sheet, month);
    書式設定_日(sheet);
    store::Database rovdata = store::Database::open(store::rovdata_path(settings), store::Kind::Rovdata);
    read_month(sheet, rovdata, base::EmployeeKey(employee), in_tables);
}

template <base::Settings& (*Company)()>
void load_month(benchmark::State& state) {
    entry::MonthSheet sheet;
    entry::MonthInTables in_tables;
    for (auto _ : state)
        load(sheet, Company(), in_tables);
}

void load_month_bare(benchmark::State& state) {
    const QString path = store::rovdata_path(large_company());
    const std::string raw = raw_key(path);
    const int first = month.start_key();
    const int total = month.total_key();
    for (auto _ : state) {
        BareDatabase rovdata(path, raw);
        rovdata.exec("begin");
        rovdata.step_through(
            "select 勤務タイプ from syainkinmu where システム社員番号=? order by rowid limit 1", {employee});
        rovdata.step_through("select 勤務タイプ名 from kintype where システム番号=? order by rowid limit 1", {1});
        rovdata.step_through(
            "select * from kintype, kinsyu where kintype.システム番号=? and kinsyu.システム番号=時間種類"
            " order by 曜日, 連番, 開始時間, 終了時間, 時間計算",
            {1});
        rovdata.step_through("select * from kyutype order by 休出 desc, 通常 desc, システム番号", {});
        rovdata.step_through("select * from rovmei where 社員システム番号=? and 出社日 between ? and ? order by 出社日",
            {employee, first, total});
        rovdata.step_through(
            "select * from kinjisyu where 社員システム番号=? and 年月日 between ? and ? order by 年月日",
            {employee, first, total});
        rovdata.step_through(
            "select * from kinnisu where 社員システム番号=? and 年月=?", {employee, month.month_key()});
        rovdata.step_through("select * from kyumei where 社員システム番号=? and 年月日 between ? and ? order by 年月日",
            {employee, first, total});
        rovdata.exec("commit");
    }
}

/// All days of the month changed, and posted. What was posted is taken away again outside the measure.
template <base::Settings& (*Company)()>
void save_month(benchmark::State& state) {
    const base::Settings& settings = Company();
    entry::MonthSheet sheet;
    entry::MonthInTables in_tables;
    load(sheet, settings, in_tables);
    for (int r = entry::row::first_day; r <= entry::row::last_day; ++r)
        sheet.mark(r) = u"1"_s;
    const QString path = store::exchange_path(settings, 1);
    QFile::remove(path);
    store::Database exchange = store::Database::create(path, store::Kind::Exchange);
    for (auto _ : state) {
        const auto rows = rows_to_post(sheet, {u"1007"_s, u"社員"_s, employee}, u"20261130120000"_s);
        entry::post_rows(settings, rows);
        state.PauseTiming();
        exchange.exec("delete from jyusin");
        state.ResumeTiming();
    }
}

/// The main PC, with the month of an employee before a person who changed some of its days.
class MonthBeforeAPerson {
public:
    explicit MonthBeforeAPerson(int changed_days) {
        load(m_sheet, m_settings, m_in_tables);
        m_read = month_as_read(m_sheet);
        m_read_cells = m_sheet.hyou;
        for (int r = entry::row::first_day; r <= changed_days; ++r) {
            m_sheet.hyou(r, entry::col::clock_in) = u"8:01"_s;
            m_sheet.mark(r) = u"1"_s;
        }
        const QString path = store::exchange_path(m_settings, 1);
        QFile::remove(path);
        store::Database::create(path, store::Kind::Exchange);
    }

    bool save() {
        return 保存処理(m_session, {m_sheet, m_read, {}, m_read_cells, m_sheet.hyou_day, {}, &m_in_tables}, person)
                   .saved == entry::Saved::Posted;
    }
    /// Others saved months of others meanwhile: the tables don't stand as they did.
    bool save_after_others() {
        m_in_tables.state.clear();
        return save();
    }
    /// The same rows of a month that isn't closed, without a look at what others saved meanwhile.
    bool post_only() {
        const auto rows = rows_to_post(m_sheet, person, u"20261201090000"_s);
        if (common::closed_since(m_settings, month.month_key()))
            return false;
        entry::post_rows(m_settings, rows);
        return true;
    }
    void take_away_what_was_posted() {
        store::Database::open(store::exchange_path(m_settings, 1), store::Kind::Exchange).exec("delete from jyusin");
    }

private:
    const entry::PostedEmployee person{u"1007"_s, u"社員"_s, employee};
    base::Settings m_settings = large_company();
    Desktop m_host;
    store::SettingTables m_tables{m_settings};
    frame::TurnLink m_link{m_settings, m_host};
    frame::Session m_session{m_settings, m_host, m_tables, m_link};
    entry::MonthSheet m_sheet;
    entry::MonthInTables m_in_tables;
    entry::MonthAsRead m_read;
    base::Sheet m_read_cells{0, 0};
};

template <bool (MonthBeforeAPerson::*Save)(), int ChangedDays>
void save_as_a_person(benchmark::State& state) {
    MonthBeforeAPerson person(ChangedDays);
    for (auto _ : state) {
        if (!(person.*Save)())
            state.SkipWithError("nothing was posted");
        state.PauseTiming();
        person.take_away_what_was_posted();
        state.ResumeTiming();
    }
}

} // namespace

std::vector<Line> month_load() {
    constexpr auto save = &MonthBeforeAPerson::save;
    constexpr auto after_others = &MonthBeforeAPerson::save_after_others;
    constexpr auto post_only = &MonthBeforeAPerson::post_only;
    benchmark::RegisterBenchmark("a month saved without conflict", save_as_a_person<save, 31>);
    benchmark::RegisterBenchmark("a month saved after others", save_as_a_person<after_others, 31>);
    benchmark::RegisterBenchmark("a month posted without a look", save_as_a_person<post_only, 31>);
    benchmark::RegisterBenchmark("a day saved without conflict", save_as_a_person<save, 1>);
    benchmark::RegisterBenchmark("a day saved after others", save_as_a_person<after_others, 1>);
    benchmark::RegisterBenchmark("a day posted without a look", save_as_a_person<post_only, 1>);
    benchmark::RegisterBenchmark("month load, 1,000 x 24", load_month<large_company>);
    benchmark::RegisterBenchmark("month load, 1,000 x 24, bare", load_month_bare);
    benchmark::RegisterBenchmark("month load, 10 x 1", load_month<small_company>);
    benchmark::RegisterBenchmark("month save, 1,000 x 24", save_month<large_company>);
    benchmark::RegisterBenchmark("month save, 10 x 1", save_month<small_company>);
    return {
        {"month load of one employee, 1,000 employees x 24 months", "month load, 1,000 x 24",
            "month load, 1,000 x 24, bare", 2, 0},
        {"the same beside 10 employees x 1 month", "month load, 1,000 x 24", "month load, 10 x 1", 1.3, 0},
        {"month save beside 10 employees x 1 month", "month save, 1,000 x 24", "month save, 10 x 1", 1.3, 0},
        {"a save that meets nobody else's days, beside posting alone", "a month saved without conflict",
            "a month posted without a look", 1.3, 0},
        {"the same of a single day", "a day saved without conflict", "a day posted without a look", 1.3, 0},
        {"the month after others saved other months", "a month saved after others", "a month posted without a look", 0,
            0},
        {"the day after others saved other months", "a day saved after others", "a day posted without a look", 0, 0},
    };
}

} // namespace bench
