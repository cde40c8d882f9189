#include "install/restore.h"

#include "base/literals.h"
#include "install/alone.h"
#include "install/move_plan.h"
#include "install/tree_settings.h"
#include "platform/file_set.h"
#include "platform/paths.h"
#include "platform/rights.h"
#include "platform/whole_file.h"
#include "store/dump.h"
#include "store/files.h"
#include "store/held.h"
#include "store/server_place.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

namespace install {

using namespace base;
using store::Code;
using store::Database;
using store::Error;
using store::Kind;

namespace {

/// What a backup of the shared data must have, may have, and what it has of one PC.
enum class Part { Shared, SharedIfMade, OwnPc };

struct Place {
    QStringView file;
    Kind kind;
    QString (*path)(const base::Settings&);
    Part part;
};

constexpr Place places[]{
    {u"rovdata.mdb", Kind::Rovdata, store::rovdata_path, Part::Shared},
    {u"comsys.mdb", Kind::Comsys, store::comsys_path, Part::Shared},
    {u"allsystem.mdb", Kind::Allsystem, store::allsystem_path, Part::Shared},
    {u"simekiri.mdb", Kind::Closings, store::closings_path, Part::SharedIfMade},
    {u"losys.mdb", Kind::Losys, store::losys_path, Part::OwnPc},
};

[[noreturn]] void fail(const QString& text) {
    throw std::runtime_error(text.toStdString());
}

/// One database of the folder that was looked through.
struct Found {
    const Place& place;
    QString file;
    store::RowCounts rows;
};

constexpr QStringView time_format = u"yyyy-MM-dd HH:mm";

QString employees_and_months(Database& rovdata) {
    store::Statement employees = rovdata.prepare("select count(*) from syain");
    employees.step();
    store::Statement months = rovdata.prepare(
        "select count(distinct 出社日/100), min(出社日)/100, max(出社日)/100 from rovmei where 出社日 > 0");
    months.step();
    const store::Row row = months.row();
    QString text = u"  employees %1, months %2"_s.arg(employees.row().number(0)).arg(row.number(0));
    if (row.number(0) > 0)
        text += u" (%1 to %2)"_s.arg(row.number(1)).arg(row.number(2));
    return text;
}

Found look_at(const Place& place, const QString& file, const Say& say) {
    Database database = store::open_checked(file, place.kind);
    Found found{place, file, store::row_counts(database)};
    say(u"%1  %2  in order"_s.arg(place.file, -13).arg(QFileInfo(file).lastModified().toString(time_format)));
    if (place.kind == Kind::Rovdata)
        say(employees_and_months(database));
    for (const auto& [table, rows] : found.rows)
        if (table != u"sqlite_master")
            say(u"  %1 %2"_s.arg(table, -12).arg(rows));
    return found;
}

/// The copies of one backup are made within moments of each other.
void tell_if_mixed(const std::vector<Found>& found, const Say& say) {
    constexpr qint64 most_seconds_apart = 3600;
    for (const Found& one : found)
        if (std::abs(QFileInfo(one.file).lastModified().secsTo(QFileInfo(found[0].file).lastModified())) >
            most_seconds_apart)
            return say(u"these databases don't come from one backup: see their times"_s);
}

bool has_shared(const std::vector<Found>& found) {
    return std::ranges::any_of(found, [](const Found& one) { return one.place.part != Part::OwnPc; });
}

void demand_a_backup(const std::vector<Found>& found, const QString& folder) {
    const auto shared = std::ranges::count_if(found, [](const Found& one) { return one.place.part == Part::Shared; });
    const auto all_shared = std::ranges::count(places, Part::Shared, &Place::part);
    if (found.empty() || (has_shared(found) && shared != all_shared))
        fail(platform::native(folder) + (found.empty() ? u": no backup"_s : u": a database is missing"_s));
}

/// A dump as a file, with the time of the dump.
QString unpacked(const QString& dump, const Place& place, const QTemporaryDir& passing) {
    if (!passing.isValid())
        throw Error(Code::ReadOnly, QDir::tempPath(), {}, passing.errorString());
    const QString target = passing.filePath(place.file.toString());
    store::file_of_dump(dump, place.kind, target);
    QFile file(target);
    if (!file.open(QIODevice::ReadWrite) ||
        !file.setFileTime(QFileInfo(dump).lastModified(), QFileDevice::FileModificationTime))
        throw Error(Code::Io, target, {}, file.errorString());
    return target;
}

std::vector<Found> look_through(const QString& folder, const QTemporaryDir& passing, const Say& say) {
    std::vector<Found> found;
    bool in_order = true;
    for (const Place& place : places) {
        const QString name = place.file.toString(), file = platform::file_of_set(folder, name);
        const QString dump = platform::file_of_set(folder, QFileInfo(name).completeBaseName() + u".dump"_s);
        if (file.isEmpty() && dump.isEmpty())
            continue;
        try {
            found.push_back(look_at(place, file.isEmpty() ? unpacked(dump, place, passing) : file, say));
        } catch (const Error& error) {
            in_order = false;
            say(u"%1  not in order: %2"_s.arg(place.file, -13).arg(error.text()));
        }
    }
    if (!in_order)
        fail(platform::native(folder) + u": the backup is not in order"_s);
    demand_a_backup(found, folder);
    tell_if_mixed(found, say);
    return found;
}

enum class Data { Here, Elsewhere };

/// Settings alone go back on every PC, also on one that works on the data of another.
Data place_of_data(const std::vector<Found>& found, const Options& options) {
    const QString other = other_place_of_data(options);
    if (has_shared(found) && !other.isEmpty())
        fail(u"the data of this PC lies at %1: restore on the PC that has it"_s.arg(other));
    const bool here =
        has_shared(found) || (other.isEmpty() && QFileInfo::exists(store::rovdata_path(settings_of(options))));
    return here ? Data::Here : Data::Elsewhere;
}

/// Settings of another tree would send the program back there. Data that lies elsewhere stays where it is.
void name_this_tree(const QString& losys, const base::Settings& settings, Data data) {
    Database database = Database::open(losys, Kind::Losys);
    store::Transaction transaction(database);
    store::Statement update = database.prepare("update losystem set データ=? where 項目名=?");
    if (data == Data::Here)
        update.bind(settings.server_root, u"サーバーＰＣ"_s).run();
    update.bind(settings.local_root, u"ローカルＰＣ"_s).run();
    transaction.commit();
}

void copy_bytes(const QString& from, const QString& to) {
    QFile source(from), target(to);
    if (!source.open(QIODevice::ReadOnly))
        throw Error(Code::Other, from, {}, source.errorString());
    if (!target.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        throw Error(Code::ReadOnly, to, {}, target.errorString());
    while (!source.atEnd()) {
        const QByteArray bytes = source.read(1 << 20);
        if (bytes.isEmpty() || target.write(bytes) != bytes.size())
            throw Error(bytes.isEmpty() ? Code::Other : Code::Full, to, {}, target.errorString());
    }
}

/// Unreadable: there is nothing to hold, and most of all nothing to wait for.
bool unreadable(Code code) {
    return code != Code::Busy && code != Code::Replaced && code != Code::ReadOnly && code != Code::Newer;
}

/// Who restores may be one of several people of the company.
void demand_same_people(const QString& present, const QString& copy) {
    if (QFileInfo::exists(present) && !platform::same_people_write(present, copy))
        fail(u"%1 belongs to %2 (%3): who restores it has to be that person, of that group, or the administrator"_s.arg(
            platform::native(present), QFileInfo(present).owner(), QFileInfo(present).group()));
}

/// One database on its way to its place.
class Return {
public:
    Return(const Found& found, const base::Settings& settings, Data data)
        : m_path(found.place.path(settings)), m_kind(found.place.kind), m_copy(m_path) {
        platform::remove_leftovers(m_path);
        store::check_system(m_copy.make(), m_path);
        demand_same_people(m_path, m_copy.passing_path());
        copy_bytes(found.file, m_copy.passing_path());
        store::check_copy(m_copy.passing_path(), m_kind, found.rows);
        if (m_kind == Kind::Losys)
            name_this_tree(m_copy.passing_path(), settings, data);
    }

    /// Opening the present file brings a change that was cut short to its end, and holding it shows that nobody uses
    /// it.
    void hold_present(std::chrono::milliseconds patience) {
        try {
            if (QFileInfo::exists(m_path))
                m_present.emplace(m_path, m_kind, patience);
        } catch (const Error& error) {
            if (!unreadable(error.code()) || store::place_at(m_path)) // a server that is away has what it has
                throw;
        }
    }

    void put_in_place(const QDateTime& now, const Say& say) {
        if (m_present && !m_present->is_file())
            return put_on_server(now, say);
        if (!platform::open_files_can_move)
            m_present.reset();
        if (QFileInfo::exists(m_path) || QFileInfo::exists(store::journal_of(m_path)))
            say(u"kept     "_s + platform::native(keep(now)));
        store::check_system(m_copy.place(platform::Durability::Disk, platform::Standing::GivesWay), m_path);
        say(u"restored "_s + platform::native(m_path));
    }

private:
    /// What stood there stays as a file beside.
    void put_on_server(const QDateTime& now, const Say& say) {
        const QString kept = store::kept_name(m_path, now);
        m_present->compact_into(kept);
        say(u"kept     "_s + platform::native(kept));
        m_present->take_over(m_copy.passing_path());
        say(u"restored "_s + platform::native(m_path));
    }

    /// The present file gets a second name and loses its own to the copy, so that one of the two is always there. A
    /// journal that stayed would be played into the copy.
    QString keep(const QDateTime& now) const {
        const QString kept = store::kept_name(m_path, now);
        QFile::rename(store::journal_of(m_path), store::journal_of(kept));
        std::error_code failure;
        std::filesystem::create_hard_link(
            QFileInfo(m_path).filesystemFilePath(), QFileInfo(kept).filesystemFilePath(), failure);
        if (failure && QFileInfo::exists(m_path) && !QFile::rename(m_path, kept))
            throw Error(Code::ReadOnly, kept, {}, QString::fromLocal8Bit(failure.message()));
        return kept;
    }

    QString m_path;
    Kind m_kind;
    platform::NewFile m_copy;
    std::optional<store::Held> m_present;
};

} // namespace

void list_backup(const QString& folder, const Say& say) {
    look_through(folder, QTemporaryDir(), say);
}

void restore_backup(const Restore& restore, const QDateTime& now, const Say& say, std::chrono::milliseconds patience) {
    Options options;
    options.root = restore.root;
    const base::Settings settings = settings_of(options);
    refuse_half_moved(settings);
    const QTemporaryDir passing;
    const std::vector<Found> found = look_through(restore.folder, passing, say);
    const Data data = place_of_data(found, options);
    make_folders(settings, has_shared(found));
    std::optional<Alone> alone;
    if (data == Data::Here)
        alone.emplace(settings);
    if (has_shared(found) && store::place_at(store::rovdata_path(settings)))
        refuse_programs_on_server(settings, patience);
    std::vector<std::unique_ptr<Return>> returns;
    for (const Found& one : found)
        returns.push_back(std::make_unique<Return>(one, settings, data));
    for (const auto& one : returns)
        one->hold_present(patience);
    for (const auto& one : returns)
        one->put_in_place(now, say);
}

} // namespace install
