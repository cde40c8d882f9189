#pragma once

// What lies on the disk, to be compared.

#include "store/database.h"

#include <QFile>
#include <QStringList>
#include <gtest/gtest.h>

namespace support {

inline QByteArray bytes_of(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline void put_bytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        ADD_FAILURE() << path.toStdString();
}

/// The rows of a query, each as its columns joined by "|"; Null as the text.
inline QStringList rows_of(store::Database database, std::string_view sql, const QString& null = {}) {
    store::Statement query = database.prepare(sql);
    QStringList rows;
    while (query.step()) {
        QStringList cells;
        for (int i = 0; i < query.row().columns(); ++i)
            cells << (query.row().is_null(i) ? null : query.row().text(i));
        rows << cells.join(QLatin1Char('|'));
    }
    return rows;
}

inline QStringList rows_of(const QString& path, store::Kind kind, std::string_view sql) {
    return rows_of(store::Database::open(path, kind), sql);
}

} // namespace support
