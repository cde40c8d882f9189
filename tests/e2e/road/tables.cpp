#include "e2e/road/tables.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "e2e/road/clerk.h"
#include "platform/program_lock.h"
#include "store/database.h"
#include "store/files.h"
#include "store/schema.h"

namespace e2e {

using namespace base;

namespace {

constexpr QStringView manager_title = u"jyusinkanri";

qint64 count_rows(store::Database& database, const QString& table) {
    auto query = database.prepare((u"select count(*) from "_s + table).toUtf8().toStdString());
    return query.step() ? query.row().number(0) : 0;
}

QString row_text(const store::Row& row) {
    QStringList cells;
    for (int column = 0; column < row.columns(); ++column)
        cells << row.text(column);
    return cells.join(u'\t');
}

QString rows_text(store::Statement& query) {
    QString text;
    while (query.step()) {
        if (text.isEmpty()) {
            QStringList names;
            for (int column = 0; column < query.row().columns(); ++column)
                names << query.row().name(column);
            text += names.join(u'\t') + u'\n';
        }
        text += row_text(query.row()) + u'\n';
    }
    return text;
}

QString attendance_text(store::Database& rovdata, qint64 employee, const base::CompanyMonth& month) {
    const struct {
        QStringView table;
        std::string_view sql;
    } by_day[] = {
        {u"rovmei", "select * from rovmei where 社員システム番号 = ?1"
                    " and (出社日 between ?2 and ?3 or 出社日 = ?4) order by 出社日"},
        {u"kinjisyu", "select * from kinjisyu where 社員システム番号 = ?1"
                      " and (年月日 between ?2 and ?3 or 年月日 = ?4) order by 年月日, 勤務種類"},
        {u"kyumei", "select * from kyumei where 社員システム番号 = ?1"
                    " and (年月日 between ?2 and ?3 or 年月日 = ?4) order by 年月日"},
    };
    QString text;
    for (const auto& [table, sql] : by_day) {
        auto query = rovdata.prepare(sql);
        query.bind(employee, month.start_key(), month.end_key(), month.total_key());
        text += u"# %1\n"_s.arg(table) + rows_text(query) + u'\n';
    }
    auto counts = rovdata.prepare("select * from kinnisu where 社員システム番号 = ? and 年月 = ?"
                                  " order by 休暇残業, システム番号");
    counts.bind(employee, month.month_key());
    return text + u"# kinnisu\n"_s + rows_text(counts) + u'\n';
}

QString counts_text(const QString& path, store::Kind kind) {
    auto database = store::Database::open(path, kind);
    QString text;
    for (const store::Table& table : store::tables_of(kind))
        text += u"%1\t%2\n"_s.arg(table.name).arg(count_rows(database, table.name.toString()));
    return text;
}

} // namespace

qint64 rows_waiting(const frame::Settings& settings) {
    auto exchange = store::Database::open(store::exchange_path(settings, 1), store::Kind::Exchange);
    return count_rows(exchange, u"jyusin"_s);
}

void wait_for_manager(const frame::Settings& settings) {
    wait_until(
        [&] {
            return !platform::ProgramLock::held(store::exchange_folder(settings), manager_title.toString()) &&
                   rows_waiting(settings) == 0;
        },
        u"the exchange manager to take the posted rows"_s);
}

QStringList missing_in_tables(
    const frame::Settings& settings, qint64 employee, const base::CompanyMonth& month, const QList<TypedDay>& days) {
    auto rovdata = store::Database::open(store::rovdata_path(settings), store::Kind::Rovdata);
    auto query =
        rovdata.prepare("select 出社時間, 退社時間, 備考 from rovmei where 社員システム番号 = ? and 出社日 = ?");
    QStringList missing;
    for (const TypedDay& day : days) {
        query.bind(employee, month.posting_key(day.row));
        const QString stored = query.step() ? row_text(query.row()) : u"no row"_s;
        const qint64 in = Val(day.clock_in), out = Val(day.clock_out) + (Val(day.clock_out) < in ? 2400 : 0);
        const QString wanted = QStringList{digits(in), digits(out), day.remark}.join(u'\t');
        if ((in != 0 || !day.remark.isEmpty()) && stored != wanted)
            missing << u"row %1: %2 wanted, %3 stored"_s.arg(day.row).arg(wanted, stored);
    }
    return missing;
}

QString dump_tables(const frame::Settings& settings, qint64 employee, const base::CompanyMonth& month) {
    auto rovdata = store::Database::open(store::rovdata_path(settings), store::Kind::Rovdata);
    return attendance_text(rovdata, employee, month) + u"# rows of every table\n"_s +
           counts_text(store::comsys_path(settings), store::Kind::Comsys) +
           counts_text(store::allsystem_path(settings), store::Kind::Allsystem) +
           counts_text(store::rovdata_path(settings), store::Kind::Rovdata) +
           counts_text(store::losys_path(settings), store::Kind::Losys);
}

} // namespace e2e
