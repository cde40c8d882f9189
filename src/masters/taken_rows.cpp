#include "masters/taken_rows.h"

#include "base/literals.h"
#include "masters/locked_file.h"

#include <algorithm>
#include <list>

namespace masters {

using namespace base;

namespace {

/// `words` with the table for "%1" and the names of the fields for "%2".
store::Statement prepare(store::Database& database, const QString& words, const TakenRows& rows) {
    QStringList names;
    for (const QString& field : rows.fields)
        names << quoted(field);
    QString filled = words;
    const QByteArray sql = filled.replace(u"%1"_s, quoted(rows.table)).replace(u"%2"_s, names.join(u", ")).toUtf8();
    return database.prepare({sql.constData(), size_t(sql.size())});
}

/// A row that came meanwhile may stand in the place of one that goes back, which then goes behind all others.
QString insertion(qsizetype fields) {
    return u"insert into %1 (%2) values ((select ?1 where not exists (select 1 from %1 where rowid=?1))"_s +
           u", ?"_s.repeated(fields - 1) + u')';
}

void keep_row(TakenRows& taken, const store::Row& row) {
    QList<std::optional<QByteArray>> values;
    for (int i = 0; i < row.columns(); ++i)
        values << (row.is_null(i) ? std::nullopt : std::optional(row.utf8(i).toByteArray()));
    taken.values << values;
}

bool has_rows(LockedFile& file, const TakenRows& taken) {
    return prepare(file.database, u"select 1 from %1 where システム番号=?"_s, taken).bind(taken.number).step();
}

void add_rows(LockedFile& file, const TakenRows& taken) {
    auto add = prepare(file.database, insertion(taken.fields.size()), taken);
    for (const auto& row : taken.values) {
        for (int i = 0; i < row.size(); ++i)
            if (row[i])
                add.bind_utf8(i + 1, *row[i]);
            else
                add.bind_null(i + 1);
        add.run();
    }
}

} // namespace

QString quoted(const QString& field) {
    return u'"' + QString(field).replace(u"\""_s, u"\"\""_s) + u'"';
}

TakenRows take_rows(store::Database& database, const QString& table, qint64 number) {
    TakenRows taken{database.path(), table, number, {}, {}};
    auto query = prepare(database, u"select rowid, * from %1 where システム番号=? order by rowid"_s, taken);
    query.bind(number);
    while (query.step()) {
        if (taken.fields.isEmpty())
            for (int i = 0; i < query.row().columns(); ++i)
                taken.fields << query.row().name(i);
        keep_row(taken, query.row());
    }
    prepare(database, u"delete from %1 where システム番号=?"_s, taken).bind(number).run();
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
