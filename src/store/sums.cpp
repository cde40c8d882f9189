#include "store/sums.h"

#include "base/literals.h"
#include "store/schema.h"

#include <QCryptographicHash>
#include <algorithm>
#include <optional>

namespace store {

using namespace base;

namespace {

/// So many rows are asked for at once: they stand in memory meanwhile.
constexpr int rows_at_once = 10'000;

/// Facts are read in the order of the key that leads their queries, other rows in that of their coming.
QStringList order_of(Kind kind, QStringView table) {
    const auto leads = [&](const Index& index) {
        return index.table == table &&
               (index.columns.startsWith(u"\"社員システム番号\", \"") || index.columns.startsWith(u"\"年月\""));
    };
    const auto indexes = indexes_of(kind);
    const auto key = std::ranges::find_if(indexes, leads);
    return (key == indexes.end() ? QStringList() : key->columns.toString().split(u", "_s)) << u"rowid"_s;
}

/// A field as its length and its bytes; none has the length 0, and no text has that of Null.
void add_field(QByteArray& bytes, const Row& row, int column, bool numeric) {
    const QByteArrayView text = row.utf8(column);
    const bool none = row.is_null(column) || (numeric && text.isEmpty());
    bytes += QByteArray::number(none ? -1 : text.size()) + ' ';
    bytes += text;
}

class Summing {
public:
    Summing(Database& database, Kind kind, const QString& table)
        : m_database(database), m_order(order_of(kind, table)) {
        QList<Column> fields = database.columns_of(table);
        std::ranges::sort(fields, {}, &Column::name);
        QStringList names = m_order;
        for (const Column& field : fields) {
            names << quoted(field.name);
            m_numeric << field.type.contains(u"int"_s, Qt::CaseInsensitive);
        }
        m_select = u"select "_s + names.join(u", ") + u" from "_s + quoted(table);
    }

    TableSum sum() {
        for (qint64 before = -1; m_sum.rows != before && m_sum.rows % rows_at_once == 0;) {
            before = m_sum.rows;
            add_part();
        }
        m_sum.checksum = m_hash.result();
        return m_sum;
    }

private:
    void add_part() {
        const QString order = m_order.join(u", "), places = QStringList(m_order.size(), u"?"_s).join(u", ");
        const QString behind = m_last.isEmpty() ? QString() : u" where (%1) > (%2)"_s.arg(order, places);
        const QString rest = u" order by %1 limit %2"_s.arg(order).arg(rows_at_once);
        Statement part = m_database.prepare((m_select + behind + rest).toStdString());
        for (int i = 0; i < m_last.size(); ++i)
            part.bind_at(i + 1, m_last[i]);
        while (part.step())
            add(part.row());
    }

    void add(const Row& row) {
        m_last.clear();
        for (int i = 0; i < m_order.size(); ++i)
            m_last << row.number(i);
        QByteArray bytes = QByteArray::number(m_last.last()) + ':';
        for (int i = 0; i < m_numeric.size(); ++i)
            add_field(bytes, row, int(m_order.size()) + i, m_numeric[i]);
        m_hash.addData(bytes);
        ++m_sum.rows;
    }

    Database& m_database;
    QStringList m_order;
    QList<bool> m_numeric;
    QString m_select;
    QList<qint64> m_last; ///< the key of the row that was added last
    QCryptographicHash m_hash{QCryptographicHash::Sha256};
    TableSum m_sum;
};

} // namespace

std::map<QString, TableSum> table_sums(Database& database, Kind kind) {
    std::map<QString, TableSum> sums;
    for (const Table& table : tables_of(kind))
        if (const QString name = table.name.toString(); database.has_table(name))
            sums[name] = Summing(database, kind, name).sum();
    return sums;
}

} // namespace store
