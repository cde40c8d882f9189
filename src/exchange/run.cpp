#include "exchange/run.h"

#include "base/literals.h"
#include "frame/kept_files.h"
#include "platform/program_lock.h"
#include "store/files.h"
#include "store/server_turn.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <array>
#include <span>
#include <utility>

namespace exchange {

using namespace base;

namespace {

using enum store::Code;

/// What a later run won't read either.
constexpr std::array lasting{Missing, Empty, NotADatabase, WrongKey, Damaged, OtherKind, Newer, Older, Misuse};

bool is_among(std::span<const store::Code> codes, store::Code code) {
    return std::ranges::find(codes, code) != codes.end();
}

bool has_rows(store::Database& database, const QString& table) {
    return database.has_table(table) && database.prepare(u"select 1 from %1 limit 1"_s.arg(table).toStdString()).step();
}

bool can_write(const QString& folder) {
    const QFileInfo info(folder);
    return info.isDir() && info.isWritable();
}

} // namespace

ManagerRun::ManagerRun(const base::Settings& settings, const Watch& watch, std::chrono::milliseconds patience)
    : m_settings(settings), m_watch(watch), m_patience(patience) {}

bool ManagerRun::apply_all() {
    while (pass() == Pass::Again) {
    }
    return m_good;
}

bool ManagerRun::rows_wait() {
    return std::ranges::any_of(kept_files() + exchange_files(), [this](const QString& path) {
        try {
            store::Database exchange = open(path);
            return has_rows(exchange, u"jyusin"_s);
        } catch (const store::Error&) {
            return false;
        }
    });
}

ManagerRun::Pass ManagerRun::pass() {
    for (const QString& path : kept_files()) {
        if (const Pass result = take_kept(path); result != Pass::Nothing)
            return result;
    }
    for (const QString& path : exchange_files()) {
        if (const Pass result = take(path); result != Pass::Nothing)
            return result;
    }
    return Pass::Nothing;
}

// Newer rows must wait for the kept ones, except where these can't be had at all.
ManagerRun::Pass ManagerRun::take_kept(const QString& path) {
    bool errors = false;
    try {
        store::Database exchange = open(path);
        if (apply(exchange, [] { return true; }) == Pass::Stopped)
            return Pass::Stopped;
        errors = has_rows(exchange, u"jyusin_error"_s);
    } catch (const store::Error& error) {
        failed(path, error);
        if (!is_among(lasting, error.code()))
            return Pass::Stopped;
        set_aside(path);
        return Pass::Again;
    }
    finish_kept(path, errors);
    return Pass::Again;
}

// A PC may remake the file at any moment, and newer rows come into it then. Once this file is locked, what was carried
// away from it is among the kept files.
ManagerRun::Pass ManagerRun::take(const QString& path) {
    try {
        store::Database exchange = open(path);
        return apply(exchange, [this] { return kept_files().isEmpty(); });
    } catch (const store::Error& error) {
        return failed(path, error);
    }
}

ManagerRun::Pass ManagerRun::apply(store::Database& exchange, const std::function<bool()>& may_take) {
    if (!has_rows(exchange, u"jyusin"_s))
        return Pass::Nothing;
    const QString tables = store::rovdata_path(m_settings);
    try {
        store::Database rovdata = store::Database::open(tables, store::Kind::Rovdata, m_patience);
        apply_rows(exchange, rovdata, m_watch, may_take);
        return Pass::Again;
    } catch (const store::Error& error) {
        if (error.file() != tables)
            throw;
        m_watch.trouble(error.text());
        m_good = false;
        return Pass::Stopped;
    }
}

ManagerRun::Pass ManagerRun::failed(const QString& path, const store::Error& error) {
    if (error.code() == Replaced)
        return Pass::Again;
    m_skipped.insert(path);
    if (error.code() == Missing)
        return Pass::Nothing;
    m_watch.trouble(error.text());
    m_good = m_good && error.code() == Busy;
    return Pass::Nothing;
}

void ManagerRun::finish_kept(const QString& path, bool holds_errors) {
    if (holds_errors)
        set_aside(path);
    else if (!QFile::remove(path))
        m_skipped.insert(path);
}

void ManagerRun::set_aside(const QString& path) {
    m_skipped.insert(path);
    QString name = path;
    do
        name += frame::unreadable_ending;
    while (QFileInfo::exists(name));
    if (!QFile::rename(path, name))
        return;
    QFile::rename(path + u"-journal"_s, name + u"-journal"_s);
    m_watch.trouble(name + u" として残しました"_s);
}

QStringList ManagerRun::kept_files() const {
    return not_skipped(frame::kept_files(m_settings));
}

QStringList ManagerRun::exchange_files() const {
    QStringList paths;
    for (int n = 1; n <= store::exchange_file_count; ++n)
        paths << store::exchange_path(m_settings, n);
    return not_skipped(paths);
}

QStringList ManagerRun::not_skipped(QStringList paths) const {
    paths.removeIf([this](const QString& path) { return m_skipped.contains(path); });
    return paths;
}

store::Database ManagerRun::open(const QString& path) const {
    return store::Database::open(path, store::Kind::Exchange, m_patience);
}

namespace {

/// False if another PC's manager is at work. Where nobody is, only the way to the server is long.
bool taken(store::ServerTurn& turn, std::chrono::milliseconds patience) {
    constexpr std::chrono::milliseconds way_to_server = std::chrono::seconds(2), silence = std::chrono::seconds(30);
    bool is_taken = turn.take_within(std::max(patience, way_to_server));
    while (!is_taken && !turn.holder(silence))
        is_taken = turn.take_within(way_to_server);
    return is_taken;
}

// A save posted while the last pass is running may find the lock still held when its own manager gives up waiting. So
// the rows are looked for once more after the lock has been let go: whoever gave up had posted before that.
bool apply_in_turn(ManagerRun& run, const base::Settings& settings, std::chrono::milliseconds lock_patience) {
    bool good = true;
    do {
        platform::ProgramLock lock(store::exchange_folder(settings), store::manager_program.toString());
        if (!lock.take(lock_patience))
            break;
        const QString posted = store::exchange_path(settings, store::posting_file);
        const auto turn = store::server_turn(posted, store::TurnFor::Applying);
        if (turn && !taken(*turn, lock_patience))
            break;
        lock_patience = {};
        good = run.apply_all();
    } while (good && run.rows_wait());
    return good;
}

} // namespace

int run_manager(const base::Settings& settings, const Watch& watch, const Patience& patience) {
    const QString folder = store::exchange_folder(settings);
    if (!can_write(folder)) {
        watch.trouble(u"受信フォルダ %1 に書き込めません"_s.arg(folder));
        return 1;
    }
    ManagerRun run(settings, watch, patience.file);
    try {
        return apply_in_turn(run, settings, patience.manager) ? 0 : 1;
    } catch (const platform::LockError& error) {
        watch.trouble(QString::fromUtf8(error.what()));
        return 1;
    } catch (const store::Error& error) {
        watch.trouble(error.text());
        return 1;
    }
}

} // namespace exchange
