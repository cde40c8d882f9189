#pragma once

// The profiles of the company, kept among the settings that all PCs share: what is assigned on one PC serves on all.

#include "intake/profile.h"
#include "store/setting_tables.h"

namespace intake {

/// In order of their names.
QList<Profile> kept_profiles(store::SettingTables& tables);

/// Nothing if none has the name.
std::optional<Profile> kept_profile(store::SettingTables& tables, const QString& name);

/// The name under which a profile is kept that is to be called so: without blanks around it, 40 characters at most.
QString profile_name(const QString& wished);

/// Keeps it under its name, in the place of one that has the name; one without a name isn't kept.
void keep_profile(store::SettingTables& tables, const Profile& profile);

} // namespace intake
