#include "store/server_engine.h"

#include "base/literals.h"
#include "store/schema.h"
#include "store/server.h"
#include "store/server_sql.h"

#include <QStringList>

namespace store {

using namespace base;

namespace {

QString literal(QString text) {
    return u'\'' + text.replace(u'\'', u"''"_s) + u'\'';
}

} // namespace

ServerEngine::~ServerEngine() {
    roll_back();
    give_back(std::move(m_link));
}

template <typename Work>
Result ServerEngine::alone_if(bool writing, Work work) {
    if (!writing || m_link->in_transaction())
        return work();
    begin(Transaction::Lock::Write);
    try {
        Result result = work();
        commit();
        return result;
    } catch (const Error&) {
        roll_back();
        throw;
    }
}

Result ServerEngine::run(const Prepared& statement, bool writing, const QList<const char*>& values) {
    Result result = alone_if(writing, [&] { return m_link->run(statement, values); });
    if (writing)
        m_changes = QByteArray(PQcmdTuples(result.get())).toInt();
    return result;
}

/// Each is put into the server's words when those before it have run: they may have changed a table.
void ServerEngine::exec(std::string_view sql) {
    const auto fields_of = [this](const QString& table) {
        QStringList names;
        for (const Column& column : columns_of(table))
            names << column.name;
        return names;
    };
    const Result last = alone_if(writes(sql), [&] {
        Result result;
        for (const QByteArray& statement : statements_of(sql))
            result = m_link->exec(server_sql({statement.constData(), size_t(statement.size())}, fields_of));
        return result;
    });
    m_changes = last ? QByteArray(PQcmdTuples(last.get())).toInt() : 0;
}

/// No row at all lets the numbers begin anew.
void ServerEngine::number_rows_behind(const QString& table, qint64 last) {
    const QByteArray sequence = "pg_get_serial_sequence(" + literal(quoted(table)).toUtf8() + ", 'rowid')";
    const bool any = last > 0;
    m_link->exec(
        "select setval(" + sequence + ", " + QByteArray::number(any ? last : 1) + (any ? ", true)" : ", false)"));
}

void ServerEngine::begin(Transaction::Lock lock) {
    try {
        if (lock == Transaction::Lock::Read)
            m_link->exec("begin isolation level repeatable read read only");
        else
            m_link->exec("begin; set local lock_timeout=" + QByteArray::number(qint64(patience.count())) + ';' +
                         m_link->write_lock());
    } catch (const Error&) {
        roll_back();
        throw;
    }
}

void ServerEngine::roll_back() noexcept {
    try {
        if (m_link->in_transaction())
            m_link->exec("rollback");
    } catch (const Error&) {
        // A connection that is cut has rolled back.
    }
}

std::unique_ptr<Engine> open_on_server(
    const ServerPlace& place, const QString& path, Kind kind, std::chrono::milliseconds patience) {
    auto link = take_link(place, path);
    if (kind != Kind::Any && link->marks().application_id != application_id(kind))
        throw Error(Code::OtherKind, path, {}, {});
    if (kind != Kind::Any && link->marks().version > schema_version)
        throw Error(Code::Newer, path, {}, {});
    auto engine = std::make_unique<ServerEngine>(std::move(link), path);
    engine->patience = patience;
    return engine;
}

QStringList ServerEngine::names() {
    QStringList names;
    const auto rows = prepare("select relname from pg_class where relnamespace = current_schema()::regnamespace");
    while (rows->step())
        names << QString::fromUtf8(rows->utf8(0));
    return names;
}

namespace {

/// Who works with the company's data may have this role and no other right: it can't change a table.
constexpr auto rights = R"(
do $$ begin
    if not exists (select from pg_roles where rolname = 'rovena_clerk') then
        create role rovena_clerk nologin;
    end if;
end $$;
grant usage on schema %1 to rovena_clerk;
grant select, insert, update, delete on all tables in schema %1 to rovena_clerk;
grant select on all sequences in schema %1 to rovena_clerk;
)";

/// False if there is a schema of the name.
bool make_schema(ServerLink& link, const QString& name, Kind kind) {
    const QByteArray there = "select 1 from pg_namespace where nspname=" + literal(name).toUtf8();
    if (PQntuples(link.exec(there).get()) > 0)
        return false;
    const QString marks = QString::fromLatin1(comment_of({application_id(kind), schema_version}));
    const QString made = u"begin; create schema %1; comment on schema %1 is %2; set local search_path=%1;\n"_s;
    link.exec((made.arg(quoted(name), literal(marks)) + server_definition_of(kind) +
               QString::fromLatin1(rights).arg(quoted(name)) + u"commit"_s)
                  .toUtf8());
    return true;
}

} // namespace

void create_on_server(const ServerPlace& place, const QString& path, Kind kind,
    const std::function<void(std::unique_ptr<Engine>)>& fill) {
    auto maker = std::make_unique<ServerLink>(place, path);
    if (!make_schema(*maker, place.schema, kind)) {
        open_on_server(place, path, kind, default_patience);
        return;
    }
    maker->know_schema();
    try {
        fill(std::make_unique<ServerEngine>(std::move(maker), path));
    } catch (...) {
        take_link(place, path)->exec("drop schema " + quoted(place.schema).toUtf8() + " cascade");
        throw;
    }
}

} // namespace store
