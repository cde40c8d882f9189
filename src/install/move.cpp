#include "install/move.h"

#include "base/literals.h"
#include "install/alone.h"
#include "install/move_way.h"
#include "install/tree_settings.h"
#include "platform/paths.h"
#include "store/files.h"
#include "store/server.h"
#include "store/sums.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <stdexcept>
#include <vector>

namespace install {

using namespace base;
using store::Database;
using store::Held;
using store::Kind;
using store::place_at;
using Goal = MovePlan::Goal;

namespace {

constexpr QStringView no_company = u"%1 に会社のデータがありません。";

[[noreturn]] void fail(const QString& text) {
    throw std::runtime_error(text.toStdString());
}

/// Where the whole company lies: a goal that is reached.
Goal place_of_company(const base::Settings& settings) {
    int there = 0, on_server = 0, wanted = 0;
    for (const MovedDatabase& database : moved_databases()) {
        if (!database.always)
            continue;
        const QString path = database.path(settings);
        ++wanted;
        there += QFileInfo::exists(path) ? 1 : 0;
        on_server += place_at(path) ? 1 : 0;
    }
    if (there < wanted || (on_server > 0 && on_server < wanted))
        fail((
            there == 0 ? no_company.toString() : u"%1 の会社のデータベースが足りないか、置き場所がそろっていません。"_s)
                 .arg(platform::native(store::data_folder(settings))));
    return on_server > 0 ? Goal::Server : Goal::Files;
}

bool rows_wait(const base::Settings& settings) {
    if (!QDir(store::exchange_folder(settings) + u"/nokori"_s).entryList({u"*.mdb"_s}, QDir::Files).isEmpty())
        return true;
    for (int number = 1; number <= store::exchange_file_count; ++number) {
        const QString path = store::exchange_path(settings, number);
        if (!QFileInfo::exists(path))
            continue;
        Database exchange = Database::open(path, Kind::Exchange);
        if (exchange.prepare("select 1 from jyusin limit 1").step())
            return true;
    }
    return false;
}

/// The first time from now on under which nothing is set aside yet.
QDateTime time_of_its_own(const base::Settings& settings, Goal goal, QDateTime now) {
    const QString path = store::rovdata_path(settings);
    const auto taken = [&](const MovePlan& plan) {
        if (goal == Goal::Server)
            return QFileInfo::exists(plan.folder_set_aside());
        Database database = Database::open(path, Kind::Rovdata);
        store::Statement schema = database.prepare("select 1 from pg_namespace where nspname = ?");
        schema.bind(plan.set_aside(MovePlan::schema(path)));
        return schema.step();
    };
    while (taken(MovePlan(settings, goal, {}, 0, now)))
        now = now.addSecs(1);
    return now;
}

class Moving {
public:
    Moving(base::Settings& settings, const MovePlan& plan, const Say& say, std::chrono::milliseconds patience)
        : m_settings(settings), m_plan(plan), m_say(say), m_patience(patience), m_way(way_of(settings, plan, say)) {}

    void run() {
        m_way->look_at_goal();
        m_plan.write();
        try {
            make_copies();
            m_way->switch_over(m_held);
            finish();
        } catch (...) {
            m_held.clear();
            undo_unless_switched();
            throw;
        }
    }

    /// True if the company lies where it was to lie, false if it is where it was.
    bool settle() {
        const bool switched = m_way->switched();
        switched ? finish() : undo();
        m_say(switched ? u"途中で終わっていた移動を、最後まで行いました。"_s
                       : u"途中で終わっていた移動を、取り消しました。"_s);
        return switched;
    }

private:
    void make_copies() {
        for (const MovedDatabase& database : moved_databases()) {
            const QString path = database.path(m_settings);
            QFile::remove(MovePlan::beside(path)); // of a run that was ended before it had a plan
            if (QFileInfo::exists(path))
                m_held.emplace_back(path, database.kind, m_patience);
        }
        for (const MovedDatabase& database : moved_databases())
            make_copy(database);
    }

    void make_copy(const MovedDatabase& database) {
        const QString path = database.path(m_settings);
        const auto held = std::ranges::find(m_held, path, &Held::path);
        if (held == m_held.end())
            return m_way->make_missing(database);
        m_way->copy(*held, database.kind);
        prove(*held, database.kind);
    }

    /// A table that isn't this program's would stay behind.
    void prove(const Held& source, Kind kind) {
        Database original = Database::open(source.path(), kind);
        Database copy = Database::open(MovePlan::beside(source.path()), kind);
        const auto sums = store::table_sums(original, kind), copied = store::table_sums(copy, kind);
        qint64 all_rows = 0;
        for (const auto& [table, rows] : source.rows()) {
            if (table == u"sqlite_master")
                continue;
            const auto sum = sums.find(table), same = copied.find(table);
            if (sum == sums.end())
                fail(u"%1 にほかのプログラムの表があり、移せません: %2"_s.arg(platform::native(source.path()), table));
            if (sum->second.rows != rows || same == copied.end() || same->second != sum->second)
                fail(
                    u"%1 の表 %2 の写しが、元と同じになりませんでした。"_s.arg(platform::native(source.path()), table));
            all_rows += rows;
        }
        m_say(u"copied   %1  表 %2、行 %3、元と同じ"_s.arg(QFileInfo(source.path()).fileName(), -13)
                  .arg(sums.size())
                  .arg(all_rows));
    }

    void finish() {
        m_way->finish();
        m_held.clear();
        m_plan.remove();
    }

    /// What can't be undone either is left to the next run.
    void undo_unless_switched() noexcept {
        try {
            if (!m_way->switched())
                undo();
        } catch (const std::exception&) {
            m_say(u"移動が途中で終わりました。rovena-install move をもう一度行ってください。"_s);
        }
    }

    void undo() {
        m_way->undo();
        m_plan.remove();
    }

    base::Settings& m_settings;
    const MovePlan m_plan;
    const Say& m_say;
    std::chrono::milliseconds m_patience;
    std::unique_ptr<MoveWay> m_way;
    std::vector<Held> m_held; ///< in the order of the databases
};

} // namespace

void move_company(const Move& move, const QDateTime& now, const Say& say, std::chrono::milliseconds patience) {
    Options options;
    options.root = move.root;
    base::Settings settings = settings_of(options);
    if (const QString other = other_place_of_data(options); !other.isEmpty())
        fail(u"このＰＣのデータは %1 にあります。データのあるＰＣで行ってください。"_s.arg(other));
    const Goal goal = move.server.isEmpty() ? Goal::Files : Goal::Server;
    if (!QFileInfo::exists(store::exchange_folder(settings)))
        fail(no_company.toString().arg(platform::native(store::data_folder(settings))));
    const Alone alone(settings);
    if (const auto plan = MovePlan::standing(settings))
        if (Moving(settings, *plan, say, patience).settle() && plan->goal() == goal)
            return;
    if (place_of_company(settings) == goal)
        fail(goal == Goal::Server ? u"会社のデータは、もうサーバーにあります。"_s
                                  : u"会社のデータは、もうファイルにあります。"_s);
    if (rows_wait(settings))
        fail(u"反映を待っている登録があります。jyusinkanri を起動してから、もう一度行ってください。"_s);
    if (goal == Goal::Files)
        refuse_programs_on_server(settings, patience);
    const QByteArray server =
        goal == Goal::Server ? move.server.trimmed().toUtf8() : place_at(store::rovdata_path(settings))->connection;
    store::check_connection_words(server);
    const MovePlan plan(settings, goal, server, move.partitions, time_of_its_own(settings, goal, now));
    Moving(settings, plan, say, patience).run();
}

} // namespace install
