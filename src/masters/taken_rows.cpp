#include "masters/taken_rows.h"

#include "base/literals.h"
#include "masters/locked_file.h"

#include <algorithm>
#include <list>

namespace masters {

using namespace base;
using store::quoted;

namespace {

/// `words` with the table for "%1".
store::Statement prepare(store::Database& database, const QString& words, const QString& table) {
    const QByteArray sql = QString(words).replace(u"%1"_s, quoted(table)).toUtf8();
    return database.prepare({sql.constData(), size_t(sql.size())});
}

/// Takes the values of the fields from the given one on.
store::Statement insertion(store::Database& database, const TakenRows& rows, qsizetype first) {
    QStringList names, places;
    for (const QString& field : rows.fields.mid(first)) {
        names << quoted(field);
        places << u"?"_s;
    }
    const QString words = u"insert into %1 (%2) values (%3)"_s;
    return prepare(database, words.arg(quoted(rows.table), names.join(u", "), places.join(u", ")), rows.table);
}

void keep_row(TakenRows& taken, const store::Row& row) {
    QList<std::optional<QByteArray>> values;
    for (int i = 0; i < row.columns(); ++i)
        values << (row.is_null(i) ? std::nullopt : std::optional(row.utf8(i).toByteArray()));
    taken.values << values;
}

bool has_rows(LockedFile& file, const TakenRows& taken) {
    return prepare(file.database, u"select 1 from %1 where システム番号=?"_s, taken.table).bind(taken.number).step();
}

using Values = QList<std::optional<QByteArray>>;

void add_row(store::Statement& insert, const Values& values) {
    for (int i = 0; i < values.size(); ++i)
        if (values[i])
            insert.bind_utf8(i + 1, *values[i]);
        else
            insert.bind_null(i + 1);
    insert.run();
}

/// A row that came meanwhile may stand in the place of one that goes back, which then goes behind all others.
void add_rows(LockedFile& file, const TakenRows& taken) {
    if (taken.values.isEmpty())
        return;
    auto place_taken = prepare(file.database, u"select 1 from %1 where rowid=?"_s, taken.table);
    auto at_its_place = insertion(file.database, taken, 0), behind = insertion(file.database, taken, 1);
    for (const Values& row : taken.values)
        if (place_taken.bind(row.front()->toLongLong()).step())
            add_row(behind, row.mid(1));
        else
            add_row(at_its_place, row);
}

} // namespace

TakenRows take_rows(store::Database& database, const QString& table, qint64 number) {
    TakenRows taken{database.path(), table, number, {}, {}};
    auto query = prepare(database, u"select rowid, * from %1 where システム番号=? order by rowid"_s, table);
    query.bind(number);
    while (query.step()) {
        if (taken.fields.isEmpty())
            for (int i = 0; i < query.row().columns(); ++i)
                taken.fields << query.row().name(i);
        keep_row(taken, query.row());
    }
    prepare(database, u"delete from %1 where システム番号=?"_s, table).bind(number).run();
    return taken;
}

bool put_back(const QList<TakenRows>& taken) {
    std::list<LockedFile> files;
    for (const TakenRows& rows : taken)
        if (has_rows(files.emplace_back(store::Database::open(rows.path, store::Kind::Any)), rows))
            return false;
    auto file = files.begin();
    for (const TakenRows& rows : taken)
        add_rows(*file++, rows);
    std::ranges::for_each(files, [](LockedFile& written) { written.transaction.commit(); });
    return true;
}

} // namespace masters
