#include "install/move_way.h"

#include "base/literals.h"
#include "platform/paths.h"
#include "platform/whole_file.h"
#include "store/files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <filesystem>
#include <ranges>
#include <stdexcept>

namespace install {

using namespace base;
using store::Code;
using store::Database;
using store::Error;
using store::Held;
using store::Kind;
using store::place_at;
using store::ServerPlace;

namespace {

void remove(const QString& path) {
    if (QFile::exists(path) && !QFile::remove(path))
        throw Error(Code::ReadOnly, path, {}, {});
}

/// What opens the database, or nothing if there is none.
template <typename Opened>
std::optional<Opened> opened(const QString& path, Kind kind) {
    try {
        if constexpr (std::is_same_v<Opened, Database>)
            return Database::open(path, kind);
        else
            return Opened(path, kind);
    } catch (const Error& error) {
        if (error.code() != Code::Missing)
            throw;
        return std::nullopt;
    }
}

/// Whether the schema that the place names is there. What a connection that was cut had asked for may still be done by
/// the server: whoever holds the schema is waited for first. Code::Busy if that takes too long.
bool is_there_at_rest(const QString& path, Kind kind) {
    auto database = opened<Database>(path, kind);
    if (!database)
        return false;
    const store::Transaction alone(*database);
    store::Statement schema = database->prepare("select 1 from pg_namespace where nspname = ?");
    return schema.bind(place_at(path).value().schema).step();
}

/// What lies beside the place, files in the making too.
void clear_away(const QString& path) {
    remove(MovePlan::beside(path));
    platform::remove_leftovers(MovePlan::beside(path));
    platform::remove_leftovers(path);
}

class WayToServer final : public MoveWay {
public:
    using MoveWay::MoveWay;

    bool switched() override { return place_at(path_of(moved_databases().front())).has_value(); }

    void look_at_goal() override {
        for (const MovedDatabase& database : moved_databases()) {
            const QString path = path_of(database), schema = MovePlan::schema(path);
            name_beside(path, schema);
            const auto gone_again = qScopeGuard([&] { QFile::remove(MovePlan::beside(path)); });
            if (opened<Database>(MovePlan::beside(path), Kind::Any))
                throw std::runtime_error("サーバーに、この名前のスキーマがもうあります: " + schema.toStdString());
        }
    }

    void copy(Held& source, Kind kind) override {
        make(source.path(), kind);
        Held(MovePlan::beside(source.path()), kind).take_over(source.path());
    }

    /// Later nobody may who only works there.
    void make_missing(const MovedDatabase& database) override { make(path_of(database), database.kind); }

    void switch_over(std::vector<Held>& held) override {
        if (!platform::open_files_can_move)
            held.clear();
    }

    void finish() override {
        for (const MovedDatabase& database : moved_databases())
            put_name(path_of(database));
        store::make_on_server_below(folder(), QString::fromUtf8(m_plan.connection()), m_plan.partitions());
        try {
            rename_schemas();
        } catch (const Error&) {
            if (still_in_the_making())
                put_files_back();
            throw;
        }
        for (const MovedDatabase& database : moved_databases())
            clear_away(path_of(database));
        m_say(u"会社のデータをサーバーへ移しました。元のファイルはそのまま残っています: "_s +
              platform::native(m_plan.folder_set_aside()));
    }

    void undo() override {
        put_files_back();
        for (const MovedDatabase& database : moved_databases()) {
            const QString path = path_of(database), schema = m_plan.schema_in_the_making(path);
            name_beside(path, schema);
            if (auto made = opened<Database>(MovePlan::beside(path), Kind::Any))
                made->exec("drop schema " + store::quoted(schema).toStdString() + " cascade");
            clear_away(path);
        }
        QDir().rmdir(m_plan.folder_set_aside());
    }

private:
    void make(const QString& path, Kind kind) {
        store::make_on_server({m_plan.connection(), m_plan.schema_in_the_making(path), m_plan.partitions()},
            MovePlan::beside(path), kind);
    }

    void name_beside(const QString& path, const QString& schema) const { write_name(MovePlan::beside(path), schema); }

    void write_name(const QString& path, const QString& schema) const {
        const QByteArray bytes = store::bytes_of(ServerPlace{m_plan.connection(), schema});
        store::check_system(platform::replace_file(path, bytes, platform::Durability::Disk), path);
    }

    /// From the first name on the company is closed: no schema is called so yet.
    void put_name(const QString& path) {
        if (place_at(path))
            return;
        if (QFileInfo::exists(path))
            set_aside(path);
        write_name(path, MovePlan::schema(path));
    }

    /// The file gets a second name and loses its own to the new one, so that there always is one.
    void set_aside(const QString& path) const {
        const QString aside = m_plan.file_set_aside(path);
        if (!QDir().mkpath(m_plan.folder_set_aside()))
            throw Error(Code::ReadOnly, m_plan.folder_set_aside(), {}, {});
        std::error_code failure;
        std::filesystem::create_hard_link(
            QFileInfo(path).filesystemFilePath(), QFileInfo(aside).filesystemFilePath(), failure);
        if (failure && !QFileInfo::exists(aside) && !QFile::rename(path, aside))
            throw Error(Code::ReadOnly, aside, {}, QString::fromLocal8Bit(failure.message()));
    }

    bool still_in_the_making() const {
        const MovedDatabase& first = moved_databases().front();
        return is_there_at_rest(MovePlan::beside(path_of(first)), first.kind);
    }

    /// Opens the company: all schemas get their names at once. They have them already if none is called as before.
    void rename_schemas() {
        const MovedDatabase& first = moved_databases().front();
        if (!still_in_the_making())
            return;
        Held made(MovePlan::beside(path_of(first)), first.kind);
        store::NewNames names;
        for (const MovedDatabase& database : moved_databases()) {
            const QString path = path_of(database);
            names.append({m_plan.schema_in_the_making(path), MovePlan::schema(path)});
        }
        made.rename_schemas(names);
    }

    /// The first place comes last. Where a file has both names still, renaming leaves the second.
    void put_files_back() {
        remove(folder() + u"/data-server"_s);
        for (const MovedDatabase& database : std::views::reverse(moved_databases())) {
            const QString path = path_of(database), aside = m_plan.file_set_aside(path);
            if (QFileInfo::exists(aside))
                store::check_system(platform::rename_over(aside, path), path);
            else if (!database.always && place_at(path))
                remove(path);
            remove(aside);
        }
    }
};

class WayToFiles final : public MoveWay {
public:
    using MoveWay::MoveWay;

    bool switched() override {
        const MovedDatabase& first = moved_databases().front();
        return !place_at(path_of(first)) || !is_there_at_rest(path_of(first), first.kind);
    }

    void copy(Held& source, Kind) override {
        const QString &path = source.path(), beside = MovePlan::beside(path);
        platform::NewFile copy(path);
        store::check_system(copy.make(), path);
        source.compact_into(copy.passing_path());
        store::check_system(copy.flush(), path);
        store::check_system(platform::rename_over(copy.passing_path(), beside), beside);
        copy.leave();
    }

    /// Closes the company for everybody: the names at the places mean nothing from then on.
    void switch_over(std::vector<Held>& held) override {
        store::NewNames names;
        for (const Held& database : held) {
            const QString schema = place_at(database.path()).value().schema;
            names.append({schema, m_plan.set_aside(schema)});
        }
        held.front().rename_schemas(names);
        held.clear();
    }

    void finish() override {
        remove(folder() + u"/data-server"_s);
        for (const MovedDatabase& database : std::views::reverse(moved_databases()))
            if (const QString path = path_of(database), beside = MovePlan::beside(path); QFileInfo::exists(beside))
                store::check_system(platform::rename_over(beside, path), path);
        for (const MovedDatabase& database : moved_databases())
            clear_away(path_of(database));
        m_say(u"会社のデータをファイルへ移しました。サーバーの元のデータは、この名前のスキーマに残っています: "_s +
              m_plan.set_aside(u"..."_s));
    }

    void undo() override {
        for (const MovedDatabase& database : moved_databases())
            clear_away(path_of(database));
    }
};

} // namespace

QString MoveWay::folder() const {
    return QFileInfo(store::data_folder(m_settings)).path();
}

std::unique_ptr<MoveWay> way_of(base::Settings& settings, const MovePlan& plan, const Say& say) {
    if (plan.goal() == MovePlan::Goal::Server)
        return std::make_unique<WayToServer>(settings, plan, say);
    return std::make_unique<WayToFiles>(settings, plan, say);
}

} // namespace install
