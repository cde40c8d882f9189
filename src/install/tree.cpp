#include "install/tree.h"

#include "base/literals.h"
#include "platform/paths.h"
#include "platform/whole_file.h"
#include "store/files.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <stdexcept>

namespace install {

using namespace base;

namespace {

/// Where a folder or file belongs: to the data that all PCs share, or to this PC alone.
enum class Owner { Shared, Pc };

struct Place {
    Owner owner;
    QStringView below; ///< the shared root or the product's folder
};

constexpr Place folders[]{
    {Owner::Shared, u"comdata/mst"},
    {Owner::Shared, u"comdata/data/jyusin"},
    {Owner::Shared, u"comdata/exe/exe"},
    {Owner::Pc, u"data/system"},
    {Owner::Pc, u"data/trn/info"},
    {Owner::Pc, u"data/print"},
    {Owner::Pc, u"system/pic/botan"},
    {Owner::Pc, u"system/exe/exe"},
    {Owner::Pc, u"help"},
};

constexpr Place programs[]{
    {Owner::Pc, u"system/exe/exe/rovena.exe"},
    {Owner::Pc, u"system/exe/exe/rovena-import.exe"},
    {Owner::Shared, u"comdata/exe/exe/jyusinkanri.exe"},
    {Owner::Shared, u"comdata/exe/exe/jyunban.exe"},
};

/// What the programs need beside them, where they don't find it in the system: libraries, and folders of more.
constexpr QStringView library_files[]{u"*.dll", u"qt.conf"};
constexpr QStringView library_folders[]{u"plugins", u"fonts", u"translations"};

struct Asset {
    QStringView from; ///< a folder or a file below an assets folder
    QStringView to;   ///< below the product's folder
};

constexpr Asset assets[]{
    {u"botan", u"system/pic/botan"},
    {u"icon", u"system/pic/icon"},
    {u"splash.bmp", u"system/pic/splash.bmp"},
    {u"help", u"help"},
};

QString below(const QString& folder, QStringView name) {
    return u"%1/%2"_s.arg(folder, name);
}

QString path_of(const Place& place, const base::Settings& settings) {
    return place.owner == Owner::Shared ? below(platform::portable(settings.server_root), place.below)
                                        : store::own_path(settings, settings.local_root, place.below);
}

[[noreturn]] void fail(const QString& path, const QString& reason) {
    throw std::runtime_error((platform::native(path) + u": "_s + reason).toStdString());
}

void make_folder(const QString& path) {
    if (!QDir().mkpath(path))
        fail(path, u"the folder can't be made"_s);
}

/// A running program keeps the file that it was started from, so the new one takes only the name.
void copy_file(const QString& from, const QString& to) {
    platform::NewFile copy(to);
    std::error_code failure = copy.make();
    QFile source(from);
    QFile target(copy.passing_path());
    if (!failure) {
        if (!source.open(QIODevice::ReadOnly) || !target.open(QIODevice::WriteOnly))
            fail(from, source.errorString());
        const QByteArray bytes = source.readAll();
        if (target.write(bytes) != bytes.size() || !target.flush() || !target.setPermissions(source.permissions()))
            fail(to, target.errorString());
        target.close();
        failure = copy.place(platform::Durability::Cache, platform::Standing::GivesWay);
    }
    if (failure)
        fail(to, QString::fromLocal8Bit(failure.message()));
}

void copy_tree(const QString& from, const QString& to) {
    // Where the folder is named relative to this process, relativeFilePath() would keep the paths as they are.
    const QDir source(QDir(from).absolutePath());
    QDirIterator files(source.path(), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        const QString target = below(to, source.relativeFilePath(file));
        make_folder(QFileInfo(target).path());
        copy_file(file, target);
    }
}

void copy_asset(const QString& from, const QString& to) {
    if (QFileInfo(from).isDir())
        copy_tree(from, to);
    else if (QFileInfo(from).isFile())
        copy_file(from, to);
}

} // namespace

void make_folders(const base::Settings& settings, bool shared) {
    for (const Place& folder : folders)
        if (folder.owner == Owner::Pc || shared)
            make_folder(path_of(folder, settings));
    // Both backups of a PC lie on its own drive, a folder a weekday.
    for (const Place& backup : {Place{Owner::Shared, u"comdata/data/bk"}, Place{Owner::Pc, u"data/bk"}})
        for (int weekday = 1; weekday <= 7; ++weekday)
            make_folder(below(path_of(backup, settings), QString::number(weekday)));
}

void copy_assets(const QStringList& sources, const base::Settings& settings, const Say& say) {
    for (const QString& source : sources) {
        if (!QFileInfo(source).isDir())
            fail(source, u"no such folder"_s);
        for (const Asset& asset : assets)
            copy_asset(below(source, asset.from), path_of({Owner::Pc, asset.to}, settings));
        say(u"copied "_s + platform::native(source));
    }
}

namespace {

void copy_libraries(const QString& from, const QString& to) {
    QStringList names;
    for (const QStringView name : library_files)
        names << name.toString();
    for (const QString& file : QDir(from).entryList(names, QDir::Files))
        copy_file(below(from, file), below(to, file));
    for (const QStringView folder : library_folders)
        copy_asset(below(from, folder), below(to, folder));
}

} // namespace

void copy_programs(const QString& source, const base::Settings& settings, bool shared, const Say& say) {
    for (const Place& program : programs) {
        if (program.owner == Owner::Shared && !shared)
            continue;
        const QString target = platform::program_file(path_of(program, settings));
        const QString name = QFileInfo(target).fileName();
        if (!QFileInfo::exists(below(source, name))) {
            say(u"no %1 beside this program"_s.arg(name));
            continue;
        }
        copy_file(below(source, name), target);
        say(u"copied "_s + name);
        copy_libraries(source, QFileInfo(target).path());
    }
}

} // namespace install
