#include "e2e/road/tables.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "e2e/road/clerk.h"
#include "platform/program_lock.h"
#include "store/database.h"
#include "store/files.h"
#include "store/schema.h"

#include <QTest>

namespace e2e {

using namespace base;

namespace {

qint64 count_rows(store::Database& database, const QString& table) {
    auto query = database.prepare((u"select count(*) from "_s + table).toUtf8().toStdString());
    return query.step() ? query.row().number(0) : 0;
}

/// The query's rows, each as a line, its cells parted by tabs.
QStringList row_texts(store::Statement& query) {
    QStringList rows;
    while (query.step()) {
        QStringList cells;
        for (int column = 0; column < query.row().columns(); ++column)
            cells << query.row().text(column);
        rows << cells.join(u'\t');
    }
    return rows;
}

QStringList counts(const QString& path, store::Kind kind) {
    auto database = store::Database::open(path, kind);
    QStringList lines;
    for (const store::Table& table : store::tables_of(kind))
        lines << u"%1\t%2 rows"_s.arg(table.name).arg(count_rows(database, table.name.toString()));
    return lines;
}

} // namespace

QStringList rows_of(const QString& path, store::Kind kind, std::string_view sql) {
    auto database = store::Database::open(path, kind);
    auto query = database.prepare(sql);
    return row_texts(query);
}

qint64 rows_waiting(const base::Settings& settings) {
    auto exchange = store::Database::open(store::exchange_path(settings, 1), store::Kind::Exchange);
    return count_rows(exchange, u"jyusin"_s);
}

void wait_for_manager(const base::Settings& settings) {
    const auto ended = [&] {
        return !platform::ProgramLock::held(store::exchange_folder(settings), u"jyusinkanri"_s) &&
               rows_waiting(settings) == 0;
    };
    demand(QTest::qWaitFor(ended, 60'000), u"the exchange manager doesn't take the posted rows"_s);
}

QStringList missing_in_tables(
    const base::Settings& settings, qint64 employee, const base::CompanyMonth& month, const QList<TypedDay>& days) {
    auto rovdata = store::Database::open(store::rovdata_path(settings), store::Kind::Rovdata);
    auto query =
        rovdata.prepare("select 出社時間, 退社時間, 備考 from rovmei where 社員システム番号 = ? and 出社日 = ?");
    QStringList missing;
    for (const TypedDay& day : days) {
        query.bind(employee, month.posting_key(day.row));
        const QString stored = row_texts(query).join(u'\n');
        const qint64 in = Val(day.clock_in), out = Val(day.clock_out) + (Val(day.clock_out) < in ? 2400 : 0);
        const QString wanted = QStringList{digits(in), digits(out), day.remark}.join(u'\t');
        if ((in != 0 || !day.remark.isEmpty()) && stored != wanted)
            missing << u"row %1: %2 wanted, %3 stored"_s.arg(day.row).arg(wanted, stored);
    }
    return missing;
}

QString dump_tables(const base::Settings& settings, qint64 employee, const base::CompanyMonth& month) {
    auto rovdata = store::Database::open(store::rovdata_path(settings), store::Kind::Rovdata);
    QStringList lines;
    for (const char* sql : {"select 'rovmei', * from rovmei where 社員システム番号 = ?1"
                            " and (出社日 between ?2 and ?3 or 出社日 = ?4) order by 出社日",
             "select 'kinjisyu', * from kinjisyu where 社員システム番号 = ?1"
             " and (年月日 between ?2 and ?3 or 年月日 = ?4) order by 年月日, 勤務種類",
             "select 'kyumei', * from kyumei where 社員システム番号 = ?1"
             " and (年月日 between ?2 and ?3 or 年月日 = ?4) order by 年月日"}) {
        auto query = rovdata.prepare(sql);
        query.bind(employee, month.start_key(), month.end_key(), month.total_key());
        lines << row_texts(query);
    }
    auto query = rovdata.prepare("select 'kinnisu', * from kinnisu where 社員システム番号 = ? and 年月 = ?"
                                 " order by 休暇残業, システム番号");
    query.bind(employee, month.month_key());
    lines << row_texts(query) << counts(store::comsys_path(settings), store::Kind::Comsys)
          << counts(store::allsystem_path(settings), store::Kind::Allsystem)
          << counts(store::rovdata_path(settings), store::Kind::Rovdata)
          << counts(store::losys_path(settings), store::Kind::Losys);
    return lines.join(u'\n') + u'\n';
}

} // namespace e2e
