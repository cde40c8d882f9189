#pragma once

// What every form is given: the run-time settings, the desktop, the settings tables and the turn link.
// main() owns them; a Session only refers to them and outlives every form.

#include "base/settings.h"
#include "frame/turn_link.h"
#include "platform/host.h"
#include "store/setting_tables.h"

namespace frame {

struct Session {
    base::Settings& settings;
    platform::Host& host;
    store::SettingTables& tables;
    TurnLink& link;
};

} // namespace frame
