#include "store/numbering.h"

#include "base/literals.h"
#include "base/text.h"
#include "store/files.h"

#include <QStringList>
#include <algorithm>

namespace store {

using namespace base;

namespace {

/// What it takes to look for one number there.
enum class Search {
    Quick, ///< a small table or an index
    Slow,  ///< reads all rows of the attendance
};

struct InUse {
    QStringView counter;
    std::string_view table;
    std::string_view column;
    Search search;
};
constexpr InUse places_of_numbers[]{
    {u"勤務種類", "kinsyu", "システム番号", Search::Quick},
    {u"勤務種類", "kintype", "時間種類", Search::Quick},
    {u"勤務種類", "kinjisyu", "勤務種類", Search::Slow},
    {u"勤務時間", "kintype", "システム番号", Search::Quick},
    {u"勤務時間", "syainkinmu", "勤務タイプ", Search::Quick},
    {u"休暇種類", "kyutype", "システム番号", Search::Quick},
    {u"休暇種類", "kyumei", "システム番号", Search::Slow},
    {u"社員番号", "syain", "システム番号", Search::Quick},
    {u"社員番号", "rovmei", "社員システム番号", Search::Quick},
};

qint64 number_of(Statement rows) {
    return rows.step() ? rows.row().number(0) : 0;
}

bool in_use(Database& rovdata, QStringView counter_name, qint64 number) {
    return std::ranges::any_of(places_of_numbers, [&](const InUse& place) {
        if (place.counter != counter_name || place.search == Search::Slow)
            return false;
        Statement rows = rovdata.prepare(
            "select 1 from " + std::string(place.table) + " where " + std::string(place.column) + "=? limit 1");
        return rows.bind(number).step();
    });
}

/// Code::Misuse if there is no such table.
QStringList field_names(Database& database, const QString& table) {
    QStringList names;
    for (const Column& column : database.columns_of(table))
        names << column.name;
    return names.isEmpty() ? throw Error(Code::Misuse, database.path(), table, {}) : names;
}

} // namespace

qint64 highest_in_use(Database& rovdata, QStringView counter_name) {
    qint64 highest = 0;
    for (const InUse& place : places_of_numbers)
        if (place.counter == counter_name)
            highest = std::max(highest, number_of(rovdata.prepare("select max(" + std::string(place.column) +
                                                                  ") from " + std::string(place.table))));
    return highest;
}

int 採番(const base::Settings& settings, const QString& counter_name) {
    Database rovdata = Database::open(rovdata_path(settings), Kind::Rovdata);
    Database comsys = Database::open(comsys_path(settings), Kind::Comsys);
    Transaction transaction(comsys);
    Statement counter = comsys.prepare("select 番号 from bangou where 番号名称=?");
    const bool known = counter.bind(counter_name).step();
    int next = known ? counter.row().integer(0) + 1 : 1;
    counter.reset();
    if (in_use(rovdata, counter_name, next))
        next = int(highest_in_use(rovdata, counter_name)) + 1;
    comsys
        .prepare(
            known ? "update bangou set 番号=? where 番号名称=?" : "insert into bangou (番号, 番号名称) values (?, ?)")
        .bind(next, counter_name)
        .run();
    transaction.commit();
    return next;
}

std::array<QString, 7> マスター項目取得(const base::Settings& settings, const QString& table, const QString& key_field,
    const QString& key_value, const std::array<QString, 7>& fields) {
    std::array<QString, 7> values;
    const QString key = base::Trim(key_value);
    const bool nothing_wanted = std::ranges::all_of(fields, [](const QString& field) { return field.isEmpty(); });
    if (base::Trim(table).isEmpty() || base::Trim(key_field).isEmpty() || key.isEmpty() || nothing_wanted)
        return values;

    Database comsys = Database::open(comsys_path(settings), Kind::Comsys);
    const QStringList columns = field_names(comsys, base::Trim(table));
    // The engine would take an unknown name in quotes for a text.
    const auto place_of = [&](const QString& field) {
        const qsizetype place = columns.indexOf(field.trimmed());
        return place >= 0 ? int(place) : throw Error(Code::Misuse, comsys.path(), table, field);
    };
    const QString key_column = quoted(columns[place_of(key_field)]);
    const QString sql = u"select * from %1 where %2=? order by rowid limit 1"_s;
    Statement rows = comsys.prepare(sql.arg(quoted(base::Trim(table)), key_column).toStdString());
    if (!rows.bind(key).step())
        return values;
    for (size_t i = 0; i < fields.size(); ++i)
        if (!fields[i].isEmpty())
            values[i] = rows.row().text(place_of(fields[i]));
    return values;
}

} // namespace store
