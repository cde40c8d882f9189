#include "install/tree_settings.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "platform/paths.h"
#include "platform/share.h"
#include "store/files.h"
#include "store/server_place.h"
#include "store/setting_tables.h"

#include <QDir>
#include <QFileInfo>
#include <QSysInfo>
#include <stdexcept>

namespace install {

using namespace base;
using store::SettingTables;

namespace {

enum class Owner { Pc, Shared, Company };

constexpr QStringView password_key = u"winパスワード";

struct Known {
    Owner owner;
    QStringView key;
    QStringView option;
    QString (*value)(const Options&); ///< empty if the option isn't given
};

constexpr Known known[]{
    {Owner::Pc, u"使用区分", u"--use-class",
        [](const Options& o) { return o.use_class ? QString::number(*o.use_class) : QString(); }},
    {Owner::Pc, u"サーバーＰＣ", u"--server-root", [](const Options& o) { return o.server_root; }},
    {Owner::Pc, u"winユーザー名", u"--share-user", [](const Options& o) { return o.share_user; }},
    {Owner::Pc, password_key, u"--share-password", [](const Options& o) { return o.share_password; }},
    {Owner::Pc, u"プリンター１", u"--printer", [](const Options& o) { return o.printer; }},
    {Owner::Shared, u"サーバー名", u"--server-name", [](const Options& o) { return o.server_name; }},
    {Owner::Shared, u"情報サーバー", u"--info-server", [](const Options& o) { return o.info_server; }},
    {Owner::Company, u"サーバー別バックアップ", u"--server-backup", [](const Options& o) { return o.server_backup; }},
};

QString table_of(Owner owner) {
    if (owner == Owner::Company)
        return store::rov_kihon;
    return owner == Owner::Pc ? store::losystem : store::kihon;
}

/// A folder may be reached by several names.
bool same_folder(const QString& one, const QString& other) {
    const auto name = [](const QString& path) {
        const QString real = QFileInfo(platform::portable(path)).canonicalFilePath();
        return real.isEmpty() ? QDir::cleanPath(platform::portable(path)) : real;
    };
    return name(one) == name(other);
}

/// The settings of a program in the tree, which finds the shared data where it lies.
base::Settings settings_with_data(const Options& options) {
    base::Settings settings = settings_of(options);
    if (const QString elsewhere = other_place_of_data(options); !elsewhere.isEmpty())
        settings.server_root = elsewhere;
    return settings;
}

QString shown(QStringView key, const QString& value) {
    return u"%1 = %2"_s.arg(key, key == password_key && !value.isEmpty() ? u"***"_s : value);
}

void set(SettingTables& tables, Owner owner, QStringView key, const QString& value, const Say& say) {
    if (tables.設定読込(table_of(owner), key.toString()) == value)
        return;
    tables.設定書込(table_of(owner), key.toString(), value);
    say(u"set      "_s + shown(key, value));
}

void set_given(SettingTables& tables, Owner owner, const Options& options, const Say& say) {
    for (const Known& setting : known)
        if (const QString value = setting.value(options); setting.owner == owner && !value.isEmpty())
            set(tables, owner, setting.key, value, say);
}

QStringList shared_options(const Options& options) {
    QStringList given;
    for (const Known& setting : known)
        if (setting.owner != Owner::Pc && !setting.value(options).isEmpty())
            given << setting.option.toString();
    return given;
}

/// Where the share can't be reached the files in it can't be opened, which is told then.
void reach_data(SettingTables& tables, const QString& server_root) {
    const auto read = [&](const QString& key) { return tables.設定読込(store::losystem, key); };
    if (platform::is_share(server_root))
        platform::connect_share(server_root, read(u"winユーザー名"_s), read(password_key.toString()));
}

/// A name by which other PCs find this machine; empty if it has none.
QString own_name() {
    const QString name = QSysInfo::machineHostName();
    return name.startsWith(u"localhost") ? QString() : name;
}

void name_main_pc(SettingTables& tables, const Say& say) {
    const bool main_pc = int_val(tables.設定読込(store::losystem, u"使用区分"_s)) == 0;
    if (main_pc && tables.設定読込(store::kihon, u"サーバー名"_s).trimmed().isEmpty())
        set(tables, Owner::Shared, u"サーバー名", own_name(), say);
}

} // namespace

QList<Setting> settings_of_pc(const Options& options) {
    QList<Setting> given;
    for (const Known& setting : known)
        if (const QString value = setting.value(options); setting.owner == Owner::Pc && !value.isEmpty())
            given << Setting{setting.key.toString(), value};
    return given;
}

QString other_place_of_data(const Options& options) {
    base::Settings own = settings_of(options);
    QString place = options.server_root;
    try {
        if (place.isEmpty())
            place = SettingTables(own).設定読込(store::losystem, u"サーバーＰＣ"_s);
    } catch (const store::Error&) {
        // There are none, or they can't be read: whoever needs them says so.
    }
    return same_folder(place, own.server_root) ? QString() : place;
}

void set_pc(const Options& options, const Say& say) {
    base::Settings settings = settings_of(options);
    SettingTables tables(settings);
    set_given(tables, Owner::Pc, options, say);
}

void set_shared(const Options& options, const Say& say) {
    base::Settings settings = settings_with_data(options);
    SettingTables tables(settings);
    const QStringList given = shared_options(options);
    try {
        if (!given.isEmpty())
            reach_data(tables, settings.server_root);
        set_given(tables, Owner::Shared, options, say);
        set_given(tables, Owner::Company, options, say);
        if (other_place_of_data(options).isEmpty())
            name_main_pc(tables, say);
    } catch (const store::Error& error) {
        const QString trouble = u"%1 not set, for the shared data can't be written:\n%2"_s;
        if (given.isEmpty())
            return say(trouble.arg(u"サーバー名"_s, error.text()));
        throw std::runtime_error(trouble.arg(given.join(u", "_s), error.text()).toStdString());
    }
}

namespace {

/// Where the company lies is told by its place alone.
void show_data_server(const base::Settings& settings, const Say& say) {
    if (const auto place = store::place_at(store::rovdata_path(settings)))
        say(shown(u"データサーバー", QString::fromUtf8(place->connection)));
}

} // namespace

void list_settings(const QString& root, const Say& say) {
    Options options;
    options.root = root;
    base::Settings settings = settings_with_data(options);
    SettingTables tables(settings);
    for (const Owner owner : {Owner::Pc, Owner::Shared, Owner::Company}) {
        if (owner != Owner::Pc)
            reach_data(tables, settings.server_root);
        for (const Known& setting : known)
            if (setting.owner == owner)
                say(shown(setting.key, tables.設定読込(table_of(owner), setting.key.toString())));
    }
    show_data_server(settings, say);
}

} // namespace install
