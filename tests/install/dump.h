#pragma once

// A database's rows as text, to be compared.

#include "base/literals.h"
#include "store/database.h"
#include "store/schema.h"

#include <QStringList>

inline QStringList rows_of(store::Database& database, const QString& sql) {
    QStringList lines;
    store::Statement rows = database.prepare(sql.toStdString());
    while (rows.step()) {
        QStringList cells;
        for (int column = 0; column < rows.row().columns(); ++column)
            cells << rows.row().text(column);
        lines << cells.join(u'|');
    }
    return lines;
}

/// All rows of the kind's tables, in the order of the tables.
inline QStringList all_rows(const QString& path, store::Kind kind) {
    using namespace base;
    store::Database database = store::Database::open(path, kind);
    QStringList lines;
    for (const store::Table& table : store::tables_of(kind))
        lines << table.name.toString() << rows_of(database, u"select * from \"%1\" order by rowid"_s.arg(table.name));
    return lines;
}
