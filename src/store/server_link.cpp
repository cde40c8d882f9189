#include "store/server_link.h"

#include "base/literals.h"
#include "store/server_engine.h"
#include "store/server_sql.h"

#include <algorithm>
#include <array>

namespace store {

using namespace base;

namespace {

constexpr std::array<unsigned, 6> number_types{20, 21, 23, 700, 701, 1700}; ///< as pg_type numbers them
constexpr int our_locks = 20060413; ///< tells these locks from those of other programs

} // namespace

QByteArray comment_of(const Marks& marks) {
    QByteArrayList words{"rovena", QByteArray::number(marks.application_id), QByteArray::number(marks.version)};
    if (marks.partitions > 0)
        words << QByteArray::number(marks.partitions);
    return words.join(' ');
}

ServerLink::ServerLink(const QByteArray& connection, const QString& path)
    : pipe(connection, path), m_connection(connection) {
    pipe.say("set lock_timeout=" + QByteArray::number(qint64(default_patience.count())));
    pipe.part();
}

/// The path of names stands for itself: within a transaction it would go with that.
void ServerLink::serve(const QString& schema, const QString& path) {
    pipe.path = path;
    if (!making)
        pipe.silence = pipe.usual_silence();
    const auto met = m_schemas.constFind(schema);
    if (met != m_schemas.constEnd() && *met == m_now)
        return;
    pipe.say("set search_path=" + quoted(schema).toUtf8() + ", pg_catalog");
    pipe.part();
    m_now = met != m_schemas.constEnd() ? *met : std::make_shared<Known>(known(schema));
    m_schemas.insert(schema, m_now);
    m_schema = schema;
}

ServerLink::Known ServerLink::known(const QString& schema) {
    m_now.reset();
    const QByteArray name = schema.toUtf8();
    const Result found =
        pipe.hear(pipe.say("select oid, obj_description(oid, 'pg_namespace'), has_schema_privilege(oid, 'usage')"
                           " from pg_namespace where nspname = $1",
            {name.constData()}));
    if (PQntuples(found.get()) == 0)
        throw Error(Code::Missing, pipe.path, {}, schema);
    if (QByteArrayView(PQgetvalue(found.get(), 0, 2)) != "t") // its tables would be said to be missing
        throw Error(Code::Forbidden, pipe.path, {}, schema);
    const QList<QByteArray> words = QByteArray(PQgetvalue(found.get(), 0, 1)).split(' ');
    return {
        PQgetvalue(found.get(), 0, 0), {words.value(1).toInt(), words.value(2).toInt(), words.value(3).toInt()}, {}};
}

const Prepared& ServerLink::prepared(std::string_view sql) {
    const QByteArray key(sql.data(), qsizetype(sql.size()));
    const auto known = m_now->prepared.constFind(key);
    if (known != m_now->prepared.constEnd())
        return *known;
    const auto fields_of = [this](const QString& table) { return names_of_columns(table); };
    return *m_now->prepared.insert(key, prepare(server_sql(sql, fields_of), QString::fromUtf8(key)));
}

Prepared ServerLink::prepare(const QByteArray& native, const QString& sql) {
    Prepared statement;
    statement.name = 's' + QByteArray::number(m_prepared++);
    statement.sql = sql;
    pipe.prepare(statement.name, native, sql);
    const Result described = pipe.hear(pipe.describe(statement.name, sql));
    for (int place = 0; place < PQnparams(described.get()); ++place)
        statement.numeric << (std::ranges::find(number_types, PQparamtype(described.get(), place)) !=
                              number_types.end());
    for (int column = 0; column < PQnfields(described.get()); ++column)
        statement.columns << QString::fromUtf8(PQfname(described.get(), column));
    return statement;
}

QList<Column> ServerLink::columns_of(const QString& table) {
    const QByteArray name = table.toUtf8();
    constexpr auto asked =
        "select attname, format_type(atttypid, atttypmod) from pg_attribute join pg_class on pg_class.oid = attrelid"
        " where relnamespace = $1::oid and relname = $2 and relkind in ('r', 'p') and attnum > 0"
        " and not attisdropped and attname <> 'rowid' order by attnum";
    const Result found = pipe.hear(pipe.say(asked, {m_now->id.constData(), name.constData()}));
    QList<Column> columns;
    for (int row = 0; row < PQntuples(found.get()); ++row)
        columns << Column{
            QString::fromUtf8(PQgetvalue(found.get(), row, 0)), QString::fromUtf8(PQgetvalue(found.get(), row, 1))};
    return columns;
}

QStringList ServerLink::names_of_columns(const QString& table) {
    QStringList names;
    for (const Column& column : columns_of(table))
        names << column.name;
    return names;
}

QByteArray ServerLink::lock_of(int which) const {
    return QByteArray::number(our_locks + which) + ", " + QByteArray::number(qint32(m_now->id.toUInt()));
}

QByteArray ServerLink::makers_lock(const QString& schema) {
    return QByteArray::number(our_locks - 1) + ", hashtext(" + literal(schema).toUtf8() + ')';
}

QByteArray ServerLink::write_lock() const {
    return "select pg_advisory_xact_lock(" + lock_of(0) + ')';
}

/// What was said last in the transaction may have failed: the end of it doesn't go with that.
bool ServerLink::make_ready() noexcept {
    try {
        if (in_transaction && pipe.usable()) {
            pipe.part();
            pipe.say("rollback");
            pipe.part();
            pipe.send();
        }
        in_transaction = false;
    } catch (const Error&) {
        // A connection that is cut has rolled back.
    }
    return !making && m_now && pipe.usable();
}

} // namespace store
