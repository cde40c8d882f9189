#include "install/install.h"

#include "base/literals.h"
#include "install/delivered.h"
#include "install/move_plan.h"
#include "install/standing.h"
#include "install/tree_settings.h"
#include "platform/paths.h"
#include "platform/program_lock.h"
#include "platform/whole_file.h"
#include "store/files.h"
#include "store/server_place.h"

#include <QFileInfo>
#include <stdexcept>

namespace install {

using namespace base;

namespace {

struct File {
    store::Kind kind;
    QString (*path)(const base::Settings&);
    bool shared;
};

constexpr File files[]{
    {store::Kind::Comsys, store::comsys_path, true},
    {store::Kind::Rovdata, store::rovdata_path, true},
    {store::Kind::Allsystem, store::allsystem_path, true}, // it tells whether there are masters by then
    {store::Kind::Losys, store::losys_path, false},
};

void make_database(const File& file, const Options& options, const base::Settings& settings, const Say& say) {
    const QString path = file.path(settings);
    if (QFileInfo::exists(path))
        return say(u"kept   "_s + platform::native(path));
    if (const QString journal = store::put_away_journal(path); !journal.isEmpty())
        say(u"put away "_s + platform::native(journal));
    store::Database::create(path, file.kind, [&](store::Database& database) { deliver(database, file.kind, options); });
    say(u"made   "_s + platform::native(path));
}

/// New databases of the shared data lie on the server from here on. A company that lies in files stays there.
void name_server(const base::Settings& settings, const Options& options, const Say& say) {
    const QString rovdata = store::rovdata_path(settings);
    if (QFileInfo::exists(rovdata) && !store::server_place(store::bytes_of(rovdata)))
        throw std::runtime_error("--data-server is for a new tree, and this one's company lies in files");
    store::make_on_server_below(
        QFileInfo(store::data_folder(settings)).path(), options.data_server, options.partitions);
    say(u"data on  "_s + options.data_server);
}

/// On a server it is made beforehand: later nobody may who only works there.
void make_closings(const base::Settings& settings, const Say& say) {
    make_database({store::Kind::Closings, store::closings_path, true}, {}, settings, say);
}

QStringList missing_exchange_files(const base::Settings& settings) {
    QStringList missing;
    for (int number = 1; number <= store::exchange_file_count; ++number)
        if (const QString path = store::exchange_path(settings, number); !QFileInfo::exists(path))
            missing << path;
    return missing;
}

/// The first start on a main PC would make them as well, but others may save before.
void make_exchange_files(const base::Settings& settings, const Say& say) {
    if (missing_exchange_files(settings).isEmpty())
        return;
    platform::ProgramLock alone(store::data_folder(settings), store::exchange_maker.toString());
    if (!alone.take(store::default_patience))
        throw store::Error(store::Code::Busy, store::exchange_folder(settings), {}, {});
    const QByteArray image = store::empty_database_image(store::Kind::Exchange);
    for (const QString& path : missing_exchange_files(settings)) {
        store::put_away_journal(path);
        if (store::place_for_new(path, store::Kind::Exchange))
            store::Database::create(path, store::Kind::Exchange);
        else
            store::check_system(platform::write_new_file(path, image, platform::Durability::Disk), path);
    }
    say(u"made   "_s + platform::native(store::exchange_folder(settings)));
}

/// Where assets lie: beside the installed program, or in the build tree.
QStringList usual_assets(const QString& program_folder) {
    QStringList there;
    for (const QString& folder : {program_folder + u"/assets"_s, program_folder + u"/../artwork"_s})
        if (QFileInfo(folder).isDir())
            there << folder;
    return there;
}

} // namespace

void run(const Options& options, const QString& program_folder, const Say& say) {
    const base::Settings settings = settings_of(options);
    const QString elsewhere = other_place_of_data(options);
    refuse_half_moved(settings);
    const bool shared = elsewhere.isEmpty();
    const bool new_company = shared && !QFileInfo::exists(store::rovdata_path(settings));
    if (!shared)
        say(u"data in  "_s + platform::native(elsewhere));
    make_folders(settings, shared);
    if (!options.data_server.isEmpty())
        name_server(settings, options, say);
    for (const File& file : files)
        if (shared || !file.shared)
            make_database(file, options, settings, say);
    if (shared) {
        if (!options.data_server.isEmpty())
            make_closings(settings, say);
        register_if_filled(settings);
        make_exchange_files(settings, say);
    }
    set_pc(options, say);
    copy_assets(options.assets.isEmpty() ? usual_assets(program_folder) : options.assets, settings, say);
    copy_programs(program_folder, settings, shared, say);
    set_shared(options, say);
    if (options.sample && !new_company)
        throw std::runtime_error("--sample makes a company, and here is one: nothing was added to it");
}

} // namespace install
