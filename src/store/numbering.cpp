#include "store/numbering.h"

#include "base/literals.h"
#include "base/text.h"
#include "store/files.h"

#include <QStringList>
#include <algorithm>

namespace store {

using namespace base;

namespace {

QString quoted(QString name) {
    return u'"' + name.replace(u'"', u"\"\""_s) + u'"';
}

QStringList columns_of(Database& database, const QString& table) {
    if (!database.has_table(table))
        throw Error(Code::Misuse, database.path(), table, {});
    Statement all = database.prepare(u"select * from %1"_s.arg(quoted(table)).toStdString());
    QStringList names;
    for (int column = 0; column < all.row().columns(); ++column)
        names << all.row().name(column);
    return names;
}

} // namespace

int 採番(const frame::Settings& settings, const QString& counter_name) {
    Database comsys = Database::open(comsys_path(settings), Kind::Comsys);
    Transaction transaction(comsys);
    Statement counter = comsys.prepare("select 番号 from bangou where 番号名称=?");
    const bool known = counter.bind(counter_name).step();
    const int next = known ? counter.row().integer(0) + 1 : 1;
    counter.reset();
    comsys
        .prepare(
            known ? "update bangou set 番号=? where 番号名称=?" : "insert into bangou (番号, 番号名称) values (?, ?)")
        .bind(next, counter_name)
        .run();
    transaction.commit();
    return next;
}

std::array<QString, 7> マスター項目取得(const frame::Settings& settings, const QString& table, const QString& key_field,
    const QString& key_value, const std::array<QString, 7>& fields) {
    std::array<QString, 7> values;
    const QString key = base::Trim(key_value);
    const bool nothing_wanted = std::ranges::all_of(fields, [](const QString& field) { return field.isEmpty(); });
    if (base::Trim(table).isEmpty() || base::Trim(key_field).isEmpty() || key.isEmpty() || nothing_wanted)
        return values;

    Database comsys = Database::open(comsys_path(settings), Kind::Comsys);
    const QStringList columns = columns_of(comsys, base::Trim(table));
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
