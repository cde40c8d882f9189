#include "store/holding.h"

#include "base/literals.h"
#include "store/file_engine.h"
#include "store/schema.h"

#include <limits>
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

void copy_row(Statement& insert, const Row& row) {
    insert.reset();
    for (int i = 0; i < row.columns(); ++i)
        row.is_null(i) ? insert.bind_null(i + 1) : insert.bind_utf8(i + 1, row.utf8(i));
    insert.run();
}

void copy_table(Database& from, Database& to, const QString& table) {
    const QStringList fields = QStringList{u"rowid"_s} + shared_fields(from, to, table);
    const QString places = QStringList(fields.size(), u"?"_s).join(u", ");
    const QString select = u"select %1 from %2 where rowid > ? order by rowid limit %3"_s;
    const QString insert = u"insert into %1 (%2) values (%3)"_s;
    Statement rows = from.prepare(select.arg(fields.join(u", "), quoted(table)).arg(rows_at_once).toStdString());
    Statement add = to.prepare(insert.arg(quoted(table), fields.join(u", "), places).toStdString());
    qint64 last = std::numeric_limits<qint64>::min();
    for (int count = rows_at_once; count == rows_at_once;) {
        count = 0;
        for (rows.bind(last); rows.step(); ++count) {
            last = rows.row().number(0);
            copy_row(add, rows.row());
        }
    }
    Engine::of(to).number_rows_behind(table, last);
}

class ServerHolding final : public Holding {
public:
    ServerHolding(Database database, Kind kind) : m_kind(kind), m_database(std::move(database)), m_alone(m_database) {}

    RowCounts rows() override;
    qint64 spare_pages() override { return 0; }
    bool is_file() const override { return false; }
    void compact_into(const QString& target) override;
    void copy_into(const QString& target) override { compact_into(target); }
    void take_over(const QString& copy) override;
    void rename_schemas(const NewNames& names) override;

private:
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
            copy_table(from, to, table.name.toString());
}

std::unique_ptr<Holding> hold_on_server(Database database, Kind kind) {
    return std::make_unique<ServerHolding>(std::move(database), kind);
}

} // namespace store
