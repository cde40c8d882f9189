#pragma once

// Rows that a deletion takes out of a table, kept whole so that they can go back as they were: each field that the
// table has, whatever this program knows of it, and the rows' order among those that stayed.

#include "store/database.h"

#include <QList>
#include <QStringList>
#include <optional>

namespace masters {

struct TakenRows {
    QString path; ///< of the file
    QString table;
    qint64 number = 0;                              ///< the `システム番号` that they have
    QStringList fields;                             ///< "rowid" first
    QList<QList<std::optional<QByteArray>>> values; ///< a row each; nothing for Null
};

/// Deletes the rows of this `システム番号` and gives them back, perhaps none. The caller holds the transaction.
TakenRows take_rows(store::Database& database, const QString& table, qint64 number);

/// Puts the rows back into their files, which are locked in this order, each a transaction of its own: all are looked
/// at before the first is written, and all are written before the first is committed. False, and nothing done, if the
/// number has a row again in one of them.
bool put_back(const QList<TakenRows>& taken);

} // namespace masters
