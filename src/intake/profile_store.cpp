#include "intake/profile_store.h"

#include "base/literals.h"

namespace intake {

using namespace base;

namespace {

const QString table = u"rov_kihon"_s;
const QString key_start = u"出勤取込 "_s; // and the profile's name
constexpr int longest_name = 40;

} // namespace

QList<Profile> kept_profiles(store::SettingTables& tables) {
    store::OpenSettings rov_kihon = tables.open(table);
    QList<Profile> profiles;
    for (const auto& [key, text] : rov_kihon.beginning_with(key_start).asKeyValueRange())
        profiles << profile_of_text(key.sliced(key_start.size()), text);
    return profiles;
}

std::optional<Profile> kept_profile(store::SettingTables& tables, const QString& name) {
    const QString text = tables.設定読込(table, key_start + name);
    return text.isEmpty() ? std::nullopt : std::optional(profile_of_text(name, text));
}

QString profile_name(const QString& wished) {
    return wished.trimmed().left(longest_name);
}

void keep_profile(store::SettingTables& tables, const Profile& profile) {
    const QString name = profile_name(profile.name);
    if (!name.isEmpty())
        tables.設定書込(table, key_start + name, profile_text(profile));
}

} // namespace intake
