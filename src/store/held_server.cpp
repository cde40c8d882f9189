#include "store/holding.h"

#include "base/literals.h"
#include "store/file_engine.h"
#include "store/schema.h"

#include <algorithm>
#include <array>
#include <optional>

namespace store {

using namespace base;

namespace {

/// So many rows are asked of the source at once: they stand in memory meanwhile.
constexpr int rows_at_once = 10'000;

QStringList tables_in(Database& database) {
    QStringList tables;
    for (const QString& name : Engine::of(database).names())
        if (database.has_table(name))
            tables << name;
    return tables;
}

/// The fields of the source, each in the target too.
QStringList shared_fields(Database& from, Database& to, const QString& table) {
    QStringList there, fields;
    for (const Column& column : to.columns_of(table))
        there << column.name;
    for (const Column& column : from.columns_of(table)) {
        fields << quoted(column.name);
        if (!there.contains(column.name))
            to.exec(u"alter table %1 add column %2 %3"_s.arg(quoted(table), quoted(column.name), column.type)
                        .toStdString());
    }
    return fields;
}

/// The fields by which the rows of a table are read a part at a time: those that the engine keeps them by.
QStringList order_of(Database& from, Kind kind, const QString& table) {
    const bool is_file = dynamic_cast<FileEngine*>(&Engine::of(from)) != nullptr;
    const Index* key = is_file ? nullptr : key_of_facts(kind, table);
    return (key ? key->columns.toString().split(u", "_s) : QStringList()) << u"rowid"_s;
}

/// Reads all rows, the fields of the order before the others.
class Reading {
public:
    Reading(Database& from, const QStringList& order, const QStringList& fields, const QString& table)
        : m_order(int(order.size())), m_from(from), m_select(u"select %1 from %2 %5 order by %3 limit %4"_s) {
        const QString names = order.join(u", "), places = QStringList(order.size(), u"?"_s).join(u", ");
        m_select = m_select.arg((order + fields).join(u", "), quoted(table), names).arg(rows_at_once);
        m_behind = u"where (%1) > (%2)"_s.arg(names, places);
    }

    bool step() {
        while (!m_rows || !m_rows->step()) {
            if (m_rows && m_count < rows_at_once)
                return false;
            begin_part();
        }
        ++m_count;
        for (int i = 0; i < m_order; ++i)
            m_last[i] = m_rows->row().number(i);
        return true;
    }
    Row row() const { return m_rows->row(); }

private:
    void begin_part() {
        const bool first = !m_rows;
        m_rows.emplace(m_from.prepare(m_select.arg(first ? QString() : m_behind).toStdString()));
        for (int i = 0; i < m_order && !first; ++i)
            m_rows->bind_at(i + 1, m_last[i]);
        m_count = 0;
    }

    int m_order;
    Database& m_from;
    QString m_select, m_behind;
    std::optional<Statement> m_rows;
    int m_count = 0;
    std::array<qint64, 4> m_last{};
};

void copy_row(Statement& insert, const Row& row, int first) {
    insert.reset();
    for (int i = first; i < row.columns(); ++i)
        row.is_null(i) ? insert.bind_null(i - first + 1) : insert.bind_utf8(i - first + 1, row.utf8(i));
    insert.run();
}

void copy_table(Database& from, Database& to, Kind kind, const QString& table) {
    const QStringList fields = shared_fields(from, to, table);
    const QStringList order = order_of(from, kind, table);
    const QString places = QStringList(fields.size() + 1, u"?"_s).join(u", ");
    const QString insert = u"insert into %1 (rowid, %2) values (%3)"_s;
    Statement add = to.prepare(insert.arg(quoted(table), fields.join(u", "), places).toStdString());
    Reading rows(from, order, fields, table);
    const int number = int(order.size()) - 1; // the row's is the last of the order
    qint64 last = 0;
    while (rows.step()) {
        last = std::max(last, rows.row().number(number));
        copy_row(add, rows.row(), number);
    }
    Engine::of(to).number_rows_behind(table, last);
}

class ServerHolding final : public Holding {
public:
    /// It is held still for as long as others are worked on: a dump of a large company takes its time.
    ServerHolding(Database database, Kind kind) : m_kind(kind), m_database(std::move(database)), m_alone(m_database) {
        m_database.expect_much();
        stay();
    }

    RowCounts rows() override;
    qint64 spare_pages() override { return 0; }
    bool is_file() const override { return false; }
    void compact_into(const QString& target) override;
    void copy_into(const QString& target) override { compact_into(target); }
    void take_over(const QString& copy) override;
    void rename_schemas(const NewNames& names) override;

private:
    void stay() { m_database.exec("set local idle_in_transaction_session_timeout=0"); }

    Kind m_kind;
    Database m_database;
    std::optional<Transaction> m_alone;
};

/// As many definitions are counted as a file has of this kind.
RowCounts ServerHolding::rows() {
    RowCounts counts;
    counts[u"sqlite_master"_s] = qint64(tables_of(m_kind).size() + indexes_of(m_kind).size());
    for (const QString& table : tables_in(m_database))
        counts[table] = number_of(m_database, u"select count(*) from "_s + quoted(table));
    return counts;
}

void ServerHolding::compact_into(const QString& target) {
    Database file = Engine::database(define_file(target, m_kind));
    Transaction filling(file);
    copy_rows(m_database, file, m_kind);
    filling.commit();
}

void ServerHolding::take_over(const QString& copy) {
    Database source = Database::open(copy, m_kind);
    for (const Table& table : tables_of(m_kind))
        m_database.exec("delete from " + quoted(table.name.toString()).toStdString());
    copy_rows(source, m_database, m_kind);
    m_alone->commit();
    m_alone.emplace(m_database);
    stay();
}

void ServerHolding::rename_schemas(const NewNames& names) {
    for (const auto& [now, then] : names)
        m_database.exec(u"alter schema %1 rename to %2"_s.arg(quoted(now), quoted(then)).toStdString());
    m_alone->commit();
    m_alone.reset();
}

} // namespace

void copy_rows(Database& from, Database& to, Kind kind) {
    for (const Table& table : tables_of(kind))
        if (from.has_table(table.name.toString()))
            copy_table(from, to, kind, table.name.toString());
}

std::unique_ptr<Holding> hold_on_server(Database database, Kind kind) {
    return std::make_unique<ServerHolding>(std::move(database), kind);
}

} // namespace store
