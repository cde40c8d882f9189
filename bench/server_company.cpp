#if __has_include(<libpq-fe.h>)

#include "bench/server_company.h"

#include "base/literals.h"
#include "bench/posted_rows.h"
#include "store/files.h"
#include "store/schema.h"
#include "store/server_place.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <map>
#include <stdexcept>

namespace bench {

using namespace base;

namespace {

store::ServerPlace place_of(const QString& path) {
    return store::server_place(store::bytes_of(path)).value();
}

/// The employees, their work type and their months; "EMPLOYEES" and "MONTHS" are how many.
constexpr auto rows_of_company = R"(
    insert into syain (システム番号, 社員番号, 社員名) select i, 1000 + i, '社員' || i from generate_series(1, EMPLOYEES) i;
    insert into syainkinmu select i, 1 from generate_series(1, EMPLOYEES) i;
    insert into kinsyu values (1, '通常'), (2, '残業'), (3, '深夜');
    insert into kyutype values (1, '有休', 1, 0), (2, '休出', 0, 1);
    insert into kintype (システム番号, 勤務タイプ名, 連番, 曜日, 開始時間, 終了時間, 時間種類, 時間計算)
        select 1, '標準', n, w, 800 + 500 * n, 1200 + 500 * n, n, 0
        from generate_series(0, 6) w, generate_series(1, 3) n;
    create temp table months as select to_char(date '2026-11-01' - make_interval(months => m), 'YYYYMM')::bigint as m
        from generate_series(0, MONTHS - 1) m;
    insert into rovmei select i, m * 100 + d, 830, 1745, 100, 815 + d, ''
        from generate_series(1, EMPLOYEES) i, months, generate_series(1, 32) d;
    insert into kinjisyu select i, m * 100 + d, c, 100 * c + d
        from generate_series(1, EMPLOYEES) i, months, generate_series(1, 32) d, generate_series(1, 3) c;
    insert into kyumei select i, m * 100 + d, 1, '有休', '0'
        from generate_series(1, EMPLOYEES) i, months, generate_series(5, 31, 6) d;
    insert into kinnisu select i, m, c, 0, 5 from generate_series(1, EMPLOYEES) i, months, generate_series(1, 3) c;
    drop table months;
)";

/// As a server has seen to tables that stand for some time: rows that were never read before are marked on first sight.
constexpr auto settled = "vacuum (freeze, analyze)";

/// New databases there lie on the server at hand, each in a schema of its own name.
void part_below(const QString& folder, int partitions) {
    const store::ServerPlace place = store::place_for_new(folder + u"/any.mdb"_s, store::Kind::Rovdata).value();
    QFile file(folder + u"/data-server"_s);
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(place.connection + "\napart\npartitions " + QByteArray::number(partitions) + '\n') < 0)
        throw std::runtime_error("no place for a company");
}

} // namespace

ServerCompany::ServerCompany(int employees, int months, int partitions) {
    if (partitions > 0)
        part_below(folder.path(), partitions);
    settings.server_root = folder.path();
    settings.local_root = folder.filePath(u"pc"_s);
    const std::pair<QString, store::Kind> databases[]{
        {store::rovdata_path(settings), store::Kind::Rovdata},
        {store::exchange_path(settings, 1), store::Kind::Exchange},
        {store::losys_path(settings), store::Kind::Losys},
    };
    for (const auto& [path, kind] : databases) {
        QDir().mkpath(QFileInfo(path).path());
        store::Database::create(path, kind);
    }
    if (employees == 0)
        return;
    BareServer server = bare();
    server.exec(QByteArray(rows_of_company)
                    .replace("EMPLOYEES", QByteArray::number(employees))
                    .replace("MONTHS", QByteArray::number(months)));
    for (const store::Table& table : store::tables_of(store::Kind::Rovdata))
        server.exec(settled + (' ' + table.name.toUtf8()));
}

BareServer ServerCompany::bare() const {
    const store::ServerPlace place = place_of(store::rovdata_path(settings));
    return {place.connection, place.schema};
}

QString ServerCompany::posted_in() const {
    return place_of(store::exchange_path(settings, 1)).schema;
}

const ServerCompany& server_company(int employees, int months) {
    static std::map<std::pair<int, int>, ServerCompany> companies;
    return companies.try_emplace({employees, months}, employees, months).first->second;
}

void prepare_posting(BareServer& server, const QString& schema) {
    const QByteArray table = '"' + schema.toUtf8() + "\".jyusin";
    server.prepare("post", "insert into " + table +
                               R"( ("2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12", "13", "14", "15", "16"))"
                               " values ($1, $2, $3, $4, $5, $6, $7, $8, $9, $10, $11, $12, $13, $14, $15)");
    server.prepare("posted", "select * from " + table + " order by rowid");
    server.prepare("taken", "delete from " + table);
}

void prepare_applying(BareServer& server) {
    server.prepare("away 51", "delete from rovmei where 社員システム番号=$1 and 出社日=$2");
    server.prepare("away 52", "delete from kinjisyu where 社員システム番号=$1 and 年月日=$2");
    server.prepare("away 53", "delete from kinnisu where 社員システム番号=$1 and 年月=$2");
    server.prepare("away 54", "delete from kyumei where 社員システム番号=$1 and 年月日=$2");
    prepare_inserts(server);
}

void apply_one(BareServer& server, const QList<QByteArray>& row) {
    const QByteArray kind = row.first();
    const bool day = kind == "51";
    const QByteArray employee = row[day ? 5 : 2], date = row[day ? 8 : 1];
    server.run_texts("away " + kind, {employee, date});
    if (day)
        server.run_texts(kind, {employee, date, row[9]});
    else if (kind == "54")
        server.run_texts(kind, {employee, date, row[3]});
    else
        server.run_texts(kind, {employee, date, row[3], row[kind == "52" ? 4 : 5]});
}

void prepare_inserts(BareServer& server) {
    server.prepare("51", "insert into rovmei values ($1, $2, $3, 1715, 100, 745, '')");
    server.prepare("52", "insert into kinjisyu values ($1, $2, $3, $4)");
    server.prepare("53", "insert into kinnisu values ($1, $2, $3, 0, $4)");
    server.prepare("54", "insert into kyumei values ($1, $2, $3, '有休', '0')");
}

void insert_many(BareServer& server) {
    for (int i = 0; i < many_rows; ++i) {
        const Posted row = posted(i);
        const QByteArray kind = QByteArray::number(row.kind);
        if (row.kind == 52 || row.kind == 53)
            server.run(kind, {row.employee, row.date, row.number, row.value});
        else
            server.run(kind, {row.employee, row.date, row.number});
    }
}

} // namespace bench

#endif
