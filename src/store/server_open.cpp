#include "store/server.h"

#include "base/literals.h"
#include "store/schema.h"
#include "store/server_engine.h"

namespace store {

using namespace base;

namespace {

/// Who may change tables is a member of rovena_owner; who works with the company's data has rovena_clerk and no other
/// right. Roles are the whole server's: what the set-up of another database made or granted in between is met again.
/// From 16 on a membership alone neither lets one be the role nor gives its rights.
constexpr auto roles = R"(
do $$
declare
    newer constant bool := current_setting('server_version_num')::int >= 160000;
begin
    for attempt in 1..5 loop
        begin
            if not exists (select from pg_roles where rolname = 'rovena_clerk') then
                create role rovena_clerk nologin;
            end if;
            if not exists (select from pg_roles where rolname = 'rovena_owner') then
                create role rovena_owner nologin;
            end if;
            if not pg_has_role('rovena_owner', case when newer then 'set' else 'member' end)
                or newer and not pg_has_role('rovena_owner', 'usage') then
                execute format('grant rovena_owner to %I', current_user)
                    || case when newer then ' with inherit true, set true' else '' end;
            end if;
            return;
        exception when duplicate_object or unique_violation or internal_error then -- the last: changed by both
            if attempt = 5 then
                raise;
            end if;
            perform pg_sleep(0.1);
        end;
    end loop;
end $$
)";

/// True for whoever is the schema's owner, or may become that.
constexpr auto may_renew = "select pg_has_role(nspowner, case when current_setting('server_version_num')::int >= 160000"
                           " then 'set, member with admin option' else 'member' end)"
                           " from pg_namespace where nspname=";

constexpr auto rights = R"(
grant usage on schema %1 to rovena_clerk;
grant select, insert, update, delete on all tables in schema %1 to rovena_clerk;
grant select on all sequences in schema %1 to rovena_clerk;
)";

/// What makes the schema's tables, or what is missing of them, as their owner until the transaction's end.
QString tables(const QString& name, Kind kind, int partitions) {
    const QString marks = QString::fromLatin1(comment_of({application_id(kind), schema_version, partitions}));
    return u"set local role rovena_owner; comment on schema %1 is %2; set local search_path=%1;\n"_s.arg(
               quoted(name), literal(marks)) +
           server_definition_of(kind, partitions) + QString::fromLatin1(rights).arg(quoted(name));
}

bool is_true(ServerLink& link, const QByteArray& question) {
    const Result answer = link.pipe.hear(link.pipe.say(question));
    return PQntuples(answer.get()) > 0 && QByteArrayView(PQgetvalue(answer.get(), 0, 0)) == "t";
}

/// They stand before the schema does: until its transaction's end no other database could be set up.
void make_roles(const ServerPlace& place, const QString& path) {
    ServerLink(place.connection, path).pipe.run_script(roles);
}

/// Begins what makes or renews the schema. The lock goes with the transaction and the connection: nobody else makes the
/// schema as long as what was done here can still come to stay.
void begin_making(ServerLink& link, const QString& schema, std::chrono::milliseconds patience) {
    constexpr int longer = 20; // indexes of a large company
    link.pipe.silence = patience + longer * link.pipe.usual_silence();
    link.in_transaction = link.making = true;
    const QByteArray limit = "set local lock_timeout=";
    try {
        link.pipe.run_script("begin; " + limit + QByteArray::number(qint64(patience.count())) +
                             "; select pg_advisory_xact_lock(" + ServerLink::makers_lock(schema) + "); " + limit +
                             QByteArray::number(qint64(default_patience.count())));
    } catch (const Error& error) {
        if (error.code() != Code::Busy)
            throw;
        throw Error(Code::Busy, link.pipe.path, {},
            u"別のＰＣがこのデータベースを準備しています。終わるのを待って、もう一度行ってください。"_s);
    }
}

bool is_there(ServerLink& link, const QString& schema) {
    return is_true(link, "select true from pg_namespace where nspname=" + literal(schema).toUtf8());
}

void check_kind(const Marks& marks, const QString& path, Kind kind) {
    if (kind != Kind::Any && marks.application_id != application_id(kind))
        throw Error(Code::OtherKind, path, {}, {});
    if (kind != Kind::Any && marks.version > schema_version)
        throw Error(Code::Newer, path, {}, {});
}

/// A schema that is there gets what it lacks, from whoever may give it, and stays parted as it is.
void renew_schema(ServerLink& link, const ServerPlace& place, Kind kind) {
    link.serve(place.schema, link.pipe.path);
    check_kind(link.marks(), link.pipe.path, kind);
    if (!is_true(link, may_renew + literal(place.schema).toUtf8()))
        return;
    make_roles(place, link.pipe.path);
    link.pipe.run_script((tables(place.schema, kind, link.marks().partitions) + u"commit"_s).toUtf8());
}

void make_schema(
    std::unique_ptr<ServerLink> link, const ServerPlace& place, Kind kind, const std::function<void(Database&)>& fill) {
    const QString path = link->pipe.path;
    make_roles(place, path);
    const QString schema = u"create schema %1 authorization rovena_owner; "_s.arg(quoted(place.schema));
    link->pipe.run_script((schema + tables(place.schema, kind, place.partitions)).toUtf8());
    link->serve(place.schema, path);
    auto engine = std::make_unique<ServerEngine>(std::move(link), path);
    ServerEngine& maker = *engine;
    Database database = Engine::database(std::move(engine));
    if (fill)
        fill(database);
    maker.end_making();
}

} // namespace

std::unique_ptr<Engine> open_on_server(
    const ServerPlace& place, const QString& path, Kind kind, std::chrono::milliseconds patience) {
    auto link = take_link(place, path);
    check_kind(link->marks(), path, kind);
    if (kind != Kind::Any && link->marks().version < schema_version)
        throw Error(Code::Older, path, {}, {});
    auto engine = std::make_unique<ServerEngine>(std::move(link), path);
    engine->patience = patience;
    return engine;
}

void create_on_server(const ServerPlace& place, const QString& path, Kind kind,
    const std::function<void(Database&)>& fill, std::chrono::milliseconds patience) {
    auto link = std::make_unique<ServerLink>(place.connection, path);
    begin_making(*link, place.schema, patience);
    if (!is_there(*link, place.schema))
        return make_schema(std::move(link), place, kind, fill);
    renew_schema(*link, place, kind);
    open_on_server(place, path, kind, default_patience);
}

} // namespace store
