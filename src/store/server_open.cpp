#include "store/server.h"

#include "base/literals.h"
#include "store/schema.h"
#include "store/server_engine.h"

namespace store {

using namespace base;

namespace {

/// Who may change tables is a member of rovena_owner; who works with the company's data has rovena_clerk and no other
/// right. Roles are the whole server's: another database's set-up may make them between the look and the making.
constexpr auto roles = R"(
do $$ begin
    if not exists (select from pg_roles where rolname = 'rovena_clerk') then
        create role rovena_clerk nologin;
    end if;
exception when duplicate_object or unique_violation then null;
end $$;
do $$ begin
    if not exists (select from pg_roles where rolname = 'rovena_owner') then
        create role rovena_owner nologin;
    end if;
exception when duplicate_object or unique_violation then null;
end $$;
do $$ begin
    if not pg_has_role(current_user, 'rovena_owner', 'member') then
        execute format('grant rovena_owner to %I', current_user);
    end if;
end $$;
)";
constexpr auto rights = R"(
grant usage on schema %1 to rovena_clerk;
grant select, insert, update, delete on all tables in schema %1 to rovena_clerk;
grant select on all sequences in schema %1 to rovena_clerk;
)";

/// What makes the schema's tables, or what is missing of them.
QString tables(const QString& name, Kind kind, int partitions) {
    const QString marks = QString::fromLatin1(comment_of({application_id(kind), schema_version, partitions}));
    return u"comment on schema %1 is %2; set local role rovena_owner; set local search_path=%1;\n"_s.arg(
               quoted(name), literal(marks)) +
           server_definition_of(kind, partitions) + QString::fromLatin1(rights).arg(quoted(name));
}

bool is_true(ServerLink& link, const QByteArray& question) {
    const Result answer = link.pipe.hear(link.pipe.say(question));
    return PQntuples(answer.get()) > 0 && QByteArrayView(PQgetvalue(answer.get(), 0, 0)) == "t";
}

/// False if there is a schema of the name.
bool make_schema(ServerLink& link, const ServerPlace& place, Kind kind) {
    const QString& name = place.schema;
    if (is_true(link, "select true from pg_namespace where nspname=" + literal(name).toUtf8()))
        return false;
    const QString schema = u"create schema %1 authorization rovena_owner; "_s.arg(quoted(name));
    link.pipe.run_script(
        (u"begin;"_s + QString::fromLatin1(roles) + schema + tables(name, kind, place.partitions) + u"commit"_s)
            .toUtf8());
    return true;
}

void check_kind(const Marks& marks, const QString& path, Kind kind) {
    if (kind != Kind::Any && marks.application_id != application_id(kind))
        throw Error(Code::OtherKind, path, {}, {});
    if (kind != Kind::Any && marks.version > schema_version)
        throw Error(Code::Newer, path, {}, {});
}

/// A schema that is there gets what it lacks, from whoever may give it, and stays parted as it is.
void renew_schema(ServerLink& link, const QString& name, Kind kind) {
    link.serve(name, link.pipe.path);
    check_kind(link.marks(), link.pipe.path, kind);
    const QByteArray owns =
        "select pg_has_role(nspowner, 'member') from pg_namespace where nspname=" + literal(name).toUtf8();
    if (is_true(link, owns))
        link.pipe.run_script(
            (u"begin;"_s + QString::fromLatin1(roles) + tables(name, kind, link.marks().partitions) + u"commit"_s)
                .toUtf8());
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
    const std::function<void(std::unique_ptr<Engine>)>& fill) {
    // Of two who set up the schema at one moment the second finds it made and filled.
    ServerLink turn(place.connection, path);
    turn.pipe.run_script("select pg_advisory_lock(" + ServerLink::makers_lock(place.schema) + ')');
    auto maker = std::make_unique<ServerLink>(place.connection, path);
    if (!make_schema(*maker, place, kind)) {
        renew_schema(*maker, place.schema, kind);
        open_on_server(place, path, kind, default_patience);
        return;
    }
    maker->serve(place.schema, path);
    try {
        fill(std::make_unique<ServerEngine>(std::move(maker), path));
    } catch (...) {
        const auto link = std::make_unique<ServerLink>(place.connection, path);
        link->pipe.run_script("drop schema " + quoted(place.schema).toUtf8() + " cascade");
        throw;
    }
}

} // namespace store
