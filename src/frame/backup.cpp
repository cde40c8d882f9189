#include "frame/backup.h"

#include "base/literals.h"
#include "platform/file_set.h"
#include "platform/paths.h"
#include "platform/whole_file.h"
#include "store/dump.h"
#include "store/files.h"
#include "store/held.h"
#include "store/server_place.h"
#include "store/setting_tables.h"

#include <QDir>
#include <QFileInfo>
#include <optional>
#include <vector>

namespace frame {

using namespace base;
using store::Code;
using store::Error;
using store::Held;
using store::Kind;

namespace {

const QString title = u"バックアップ"_s;

/// A generation without this file is still one.
enum class Need { Must, May };
/// What happens to the live file once the copy is made.
enum class Live { Compacted, Left };

struct Source {
    Kind kind;
    QString (*path)(const base::Settings&);
    Need need;
    Live live;
};

/// The settings of the PC that has the shared data; there are none where that lies on a disk of the network.
QString server_losys_path(const base::Settings& settings) {
    return store::own_path(settings, settings.server_root, u"data/system/losys.mdb");
}

constexpr Source sources[]{
    {Kind::Rovdata, store::rovdata_path, Need::Must, Live::Compacted},
    {Kind::Comsys, store::comsys_path, Need::Must, Live::Compacted},
    {Kind::Allsystem, store::allsystem_path, Need::Must, Live::Compacted},
    {Kind::Closings, store::closings_path, Need::May, Live::Left},
    {Kind::Losys, server_losys_path, Need::May, Live::Left},
};

QString install_root(const base::Settings& settings) {
    return platform::portable(platform::install_root(settings.install_drive));
}

QString weekday(QDate day) {
    return QString::number(day.dayOfWeek() % 7 + 1);
}

void make_folder(const QString& path) {
    if (!QDir().mkpath(path))
        throw Error(Code::ReadOnly, path, {}, {});
}

class Steps {
public:
    Steps(platform::Host& host, const BackupProgress& progress, int of)
        : m_host(host), m_progress(progress), m_steps{.of = of} {}

    void next(const QString& what) {
        if (m_progress)
            m_progress(u"バックアップ中... "_s + what, m_steps);
        ++m_steps.done;
        m_host.yield();
    }

private:
    platform::Host& m_host;
    const BackupProgress& m_progress;
    StepsDone m_steps;
};

/// One database on its way into the generation.
struct Item {
    const Source& source;
    Held held;
    QString file; ///< its name in the folder
    bool dumped = false;
};

class Generation {
public:
    Generation(const base::Settings& settings, const QString& folder, std::chrono::milliseconds patience, Steps& steps)
        : m_settings(settings), m_folder(folder), m_patience(patience), m_steps(steps), m_copies(folder) {}

    /// All databases are held from before the first copy, so that they belong together.
    void make() {
        make_folder(m_folder);
        store::check_system(platform::settle_set(m_folder), m_folder);
        for (const Source& source : sources)
            hold(source);
        for (Item& item : m_items)
            copy(item);
        store::check_system(m_copies.place(), m_folder);
    }

    /// Gives the live files the compacted contents. Returns what kept some of them from it; these stand as they stood.
    QStringList compact_live() {
        QStringList troubles;
        for (Item& item : m_items) {
            if (item.source.live == Live::Left || !item.held.is_file())
                continue;
            m_steps.next(item.file);
            try {
                item.held.take_over(m_folder + u'/' + item.file);
            } catch (const Error& error) {
                troubles << error.text();
            }
        }
        return troubles;
    }

private:
    void hold(const Source& source) {
        const QString path = source.path(m_settings);
        if (source.need == Need::May && !QFileInfo::exists(path))
            return;
        Held held(path, source.kind, m_patience);
        const QFileInfo file(path);
        const bool dumped = !held.is_file() && m_can_dump;
        m_items.push_back({source, std::move(held), dumped ? file.completeBaseName() + u".dump"_s : file.fileName()});
        m_items.back().dumped = dumped;
    }

    void copy(Item& item) {
        m_steps.next(item.file);
        store::check_system(m_copies.make(item.file), m_folder + u'/' + item.file);
        const QString& made = m_copies.passing_path(item.file);
        if (item.dumped) {
            store::dump_into(item.held, made);
            return store::check_dump(made, item.source.kind, item.held);
        }
        item.held.compact_into(made);
        store::check_copy(made, item.source.kind, item.held.rows());
    }

    const bool m_can_dump = store::can_dump();

    const base::Settings& m_settings;
    QString m_folder;
    std::chrono::milliseconds m_patience;
    Steps& m_steps;
    std::vector<Item> m_items;
    platform::FileSet m_copies;
};

void copy_settings_of_pc(const base::Settings& settings, const QString& folder, std::chrono::milliseconds patience) {
    make_folder(folder);
    const QString place = folder + u"/losys.mdb"_s;
    platform::remove_leftovers(place);
    Held held(store::own_path(settings, install_root(settings), u"data/system/losys.mdb"), Kind::Losys, patience);
    platform::NewFile copy(place);
    store::check_system(copy.make(), place);
    held.copy_into(copy.passing_path());
    store::check_copy(copy.passing_path(), Kind::Losys, held.rows());
    store::check_system(copy.place(platform::Durability::Disk, platform::Standing::GivesWay), place);
}

/// Runs a part of the backup; what it throws is told under this heading.
void told(platform::Host& host, const QString& heading, const std::function<void()>& part) {
    QString trouble;
    try {
        return part();
    } catch (const Error& error) {
        trouble = error.text();
    } catch (const std::exception& error) {
        trouble = QString::fromUtf8(error.what());
    }
    host.tell(heading + u"\n\n"_s + trouble, title);
}

bool on_server(const base::Settings& settings) {
    return store::place_at(store::rovdata_path(settings)).has_value();
}

/// A server that doesn't answer is told of by the backup.
bool backed_up_elsewhere(base::Settings settings) {
    try {
        return on_server(settings) &&
               store::SettingTables(settings).設定読込(store::rov_kihon, u"サーバー別バックアップ"_s) == u"1";
    } catch (const Error&) {
        return false;
    }
}

bool wanted(const base::Settings& settings, platform::Host& host) {
    if (settings.use_class != 0 && settings.use_class != 1)
        return false;
    const QString more = u"\n\nサーバーのデータは、別の方法でバックアップされています。"_s;
    const QString question = u"バックアップしますか？"_s + (backed_up_elsewhere(settings) ? more : QString());
    return host.ask(question, title, platform::Buttons::YesNo) == platform::Answer::Yes;
}

/// The backup is one in any case.
void tell_of_missing_tool(const base::Settings& settings, platform::Host& host) {
    if (on_server(settings) && !store::can_dump())
        host.tell(u"pg_dump が見つからないため、暗号化ファイルでバックアップしました。"
                  "PostgreSQL のクライアントのプログラムを入れると、pg_dump でバックアップします。"_s,
            title);
}

} // namespace

QString shared_backup_folder(const base::Settings& settings, QDate day) {
    return install_root(settings) + u"/comdata/data/bk/"_s + weekday(day);
}

QString local_backup_folder(const base::Settings& settings, QDate day) {
    return store::own_path(settings, install_root(settings), u"data/bk/") + weekday(day);
}

void バックアップ処理(const base::Settings& settings, platform::Host& host, const BackupProgress& progress,
    std::chrono::milliseconds patience) {
    const QDate today = host.now().date();
    const bool shared = wanted(settings, host);
    constexpr int steps_of_shared = 7; // four copies, three live files
    Steps steps(host, progress, (shared ? steps_of_shared : 0) + 1);
    QStringList left_as_they_were;
    if (shared)
        told(host, u"バックアップできませんでした。データベースはそのままです。"_s, [&] {
            Generation generation(settings, shared_backup_folder(settings, today), patience, steps);
            generation.make();
            tell_of_missing_tool(settings, host);
            left_as_they_were = generation.compact_live();
        });
    if (!left_as_they_were.isEmpty())
        host.tell(
            u"バックアップはできましたが、データベースを圧縮できませんでした。データベースはそのままです。\n\n"_s +
                left_as_they_were.join(u"\n\n"_s),
            title);
    told(host, u"このＰＣの設定をバックアップできませんでした。"_s, [&] {
        steps.next(u"losys.mdb"_s);
        copy_settings_of_pc(settings, local_backup_folder(settings, today), patience);
    });
}

} // namespace frame
