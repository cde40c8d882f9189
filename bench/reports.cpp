#include "bench/reports.h"
#include "base/literals.h"
#include "bench/bare.h"
#include "bench/companies.h"
#include "bench/table.h"
#include "reports/csv.h"
#include "reports/tallies/work_time_list.h"
#include "store/files.h"
#include "tests/support/fake_host.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>

namespace bench {

using namespace base;

namespace {

constexpr qint64 first_day = 20261201;
constexpr qint64 last_day = 20261231;
constexpr double wanted_megabytes = 250;

/// A month of 31 days, three categories each day, and the month's totals; rows lie as saves leave them.
constexpr std::string_view month_rows = R"(
    insert into syain (システム番号, 社員番号, 社員名)
        with recursive n(i) as (select 1 union all select i + 1 from n where i < ?)
        select i, 1000 + i, '社員' || i from n;
    create temp table days (day integer, number integer);
    insert into days with recursive d(i) as (select 1 union all select i + 1 from d where i < 32)
        select 20261200 + i, i from d;
    insert into kinsyu values (1, '通常'), (2, '残業'), (3, '深夜');
    insert into rovmei select システム番号, day, 830, 1745, 100, 815 + number % 45, '' from syain cross join days;
    insert into kinjisyu select syain.システム番号, day, kinsyu.システム番号, 100 * kinsyu.システム番号 + number % 60
        from syain cross join days cross join kinsyu;
    insert into kyumei select システム番号, day, 1, '有休', '0' from syain cross join days where number < 32;
    drop table days;
)";

/// The employees and their month, without other rows.
class Month {
public:
    explicit Month(int employees) {
        settings.server_root = settings.local_root = folder.path();
        for (const QString& path : {store::rovdata_path(settings), store::losys_path(settings)})
            QDir().mkpath(QFileInfo(path).path());
        store::Database::create(store::losys_path(settings), store::Kind::Losys);
        store::Database::create(store::rovdata_path(settings), store::Kind::Rovdata, [&](store::Database& rovdata) {
            rovdata.exec(QString::fromUtf8(month_rows).replace(u'?', QString::number(employees)).toStdString());
        });
        report.帳票番号 = 5;
        report.conditions.ymd = {u"2026/12/1"_s, u"2026/12/31"_s};
    }

    void tally() {
        reports::Work work{session, {}, {}};
        集計_勤務時間一覧表(report, work);
    }

    QTemporaryDir folder{temporary_place()};
    base::Settings settings;
    support::FakeHost host;
    store::SettingTables tables{settings};
    frame::TurnLink link{settings, host};
    frame::Session session{settings, host, tables, link};
    reports::Report report;
};

Month& month(int employees) {
    static std::map<int, Month> months;
    return months.try_emplace(employees, employees).first->second;
}

template <int employees>
void work_time_list(benchmark::State& state) {
    Month& company = month(employees);
    for (auto _ : state)
        company.tally();
}

struct Queries {
    const char* employees;
    const char* days;
    const char* hours;
    const char* leave;
};

/// What the list asks for, one employee after the other.
constexpr Queries by_employee{
    "select 社員システム番号 from rovmei where 社員システム番号 > ? order by 社員システム番号 limit 1",
    "select 出社日, 休憩時間, 勤務時間 from rovmei"
    " where 社員システム番号 = ? and 出社日 between ? and ? order by 出社日",
    "select 年月日, 勤務種類, 時間 from kinjisyu where 社員システム番号 = ? and 年月日 between ? and ?",
    "select 年月日, 休暇名 from kyumei where 社員システム番号 = ? and 年月日 between ? and ? order by 年月日"};

void work_time_list_bare(benchmark::State& state) {
    const base::Settings& settings = month(1000).settings;
    const QString path = store::rovdata_path(settings);
    const std::string raw = raw_key(path);
    for (auto _ : state) {
        BareDatabase rovdata(path, raw);
        rovdata.exec("begin");
        rovdata.step_through(
            "select システム番号, 社員番号, 社員名 from syain where システム番号 between ? and ?", {1, 1000});
        sqlite3_stmt* statements[] = {rovdata.prepare(by_employee.employees), rovdata.prepare(by_employee.days),
            rovdata.prepare(by_employee.hours), rovdata.prepare(by_employee.leave)};
        for (int employee = 1; employee <= 1000; ++employee) {
            step(statements[0], {employee - 1});
            for (sqlite3_stmt* statement : {statements[1], statements[2], statements[3]})
                step(statement, {employee, first_day, last_day});
        }
        for (sqlite3_stmt* statement : statements)
            sqlite3_finalize(statement);
        rovdata.exec("commit");
    }
}

/// The same rows by one range over employees and days a table, joined with the names as a report would ask for them.
void work_time_list_ranges(benchmark::State& state) {
    const base::Settings& settings = month(1000).settings;
    const QString path = store::rovdata_path(settings);
    const std::string raw = raw_key(path);
    for (auto _ : state) {
        BareDatabase rovdata(path, raw);
        for (const char* query :
            {"select * from rovmei where 社員システム番号 between ? and ? and 出社日 between ? and ?"
             " order by 社員システム番号",
                "select * from kinjisyu, kinsyu where 勤務種類 = システム番号 and 社員システム番号 between ? and ?"
                " and 年月日 between ? and ?",
                "select * from kyumei where 社員システム番号 between ? and ? and 年月日 between ? and ?"}) {
            sqlite3_stmt* statement = rovdata.prepare(query);
            step(statement, {1, 1000, first_day, last_day});
            sqlite3_finalize(statement);
        }
    }
}

void ten_small_lists(benchmark::State& state) {
    Month& company = month(1000);
    for (auto _ : state)
        for (int i = 0; i < 10; ++i)
            company.tally();
}

/// Where people's files lie: on the disk, whose cache takes them.
QString csv_path() {
    static const QTemporaryDir folder;
    return folder.filePath(u"list.csv"_s);
}

const reports::Report& long_list() {
    Month& company = month(10'000);
    if (company.report.hyou.Rows() < 10'000)
        company.tally();
    return company.report;
}

QList<QByteArray> rows_of(const QByteArray& bytes) {
    QList<QByteArray> rows;
    for (qsizetype at = 0, end = 0; at < bytes.size(); at = end) {
        end = bytes.indexOf('\n', at) + 1;
        rows << bytes.mid(at, end - at);
    }
    return rows;
}

QByteArray written_csv() {
    QFile file(csv_path());
    const bool written = write_csv(long_list(), csv_path()) == reports::Written::Whole;
    return written && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void csv(benchmark::State& state) {
    const reports::Report& report = long_list();
    for (auto _ : state)
        if (write_csv(report, csv_path()) != reports::Written::Whole)
            state.SkipWithError("no file");
}

/// The bytes lie ready; they go out in one piece, or a row at a time as programs write rows.
template <bool by_row>
void csv_bare(benchmark::State& state) {
    const QByteArray bytes = written_csv();
    const QList<QByteArray> pieces = by_row ? rows_of(bytes) : QList<QByteArray>{bytes};
    for (auto _ : state) {
        QFile::remove(csv_path());
        QFile file(csv_path());
        if (!file.open(QIODevice::WriteOnly))
            state.SkipWithError("no file");
        for (const QByteArray& piece : pieces)
            file.write(piece);
    }
}

double peak_megabytes() {
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray text = status.readAll();
    const qsizetype at = text.indexOf("VmHWM:");
    return at < 0 ? 0 : text.mid(at + 6, text.indexOf("kB", at) - at - 6).trimmed().toDouble() / 1024;
}

/// Lets the peak begin anew with what the process holds now.
void forget_peak() {
    QFile file(u"/proc/self/clear_refs"_s);
    if (file.open(QIODevice::WriteOnly))
        file.write("5");
}

} // namespace

std::vector<Line> work_time_lists() {
    benchmark::RegisterBenchmark("work time list, 1,000", work_time_list<1000>);
    benchmark::RegisterBenchmark("work time list, 1,000, bare", work_time_list_bare);
    benchmark::RegisterBenchmark("work time list, 1,000, ranges", work_time_list_ranges);
    benchmark::RegisterBenchmark("work time list, 10,000", work_time_list<10'000>);
    benchmark::RegisterBenchmark("work time list, 10 x 1,000", ten_small_lists);
    benchmark::RegisterBenchmark("csv, 10,000 rows", csv);
    benchmark::RegisterBenchmark("csv, 10,000 rows, by row", csv_bare<true>);
    benchmark::RegisterBenchmark("csv, 10,000 rows, at once", csv_bare<false>);
    return {
        {"work time list, 1,000 employees, against its queries", "work time list, 1,000", "work time list, 1,000, bare",
            1.8, 0},
        {"the same against one range a table", "work time list, 1,000", "work time list, 1,000, ranges", 0, 0},
        {"work time list, 10,000 employees, against ten of 1,000", "work time list, 10,000",
            "work time list, 10 x 1,000", 1.2, 0},
        {"text file of 10,000 rows, against writing its rows", "csv, 10,000 rows", "csv, 10,000 rows, by row", 3, 0},
        {"the same against writing all bytes at once", "csv, 10,000 rows", "csv, 10,000 rows, at once", 0, 0},
    };
}

bool print_list_memory() {
    Month& company = month(10'000);
    company.report.hyou = Sheet();
    forget_peak();
    company.tally();
    const double megabytes = peak_megabytes();
    std::printf("%-58s %9.1f MB %35s  <= %.0f MB\n", "peak memory, work time list, 10,000 employees", megabytes, "",
        wanted_megabytes);
    return megabytes <= wanted_megabytes;
}

} // namespace bench
