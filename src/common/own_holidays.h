#pragma once

// The company's own days off in the store: a key of `rov_kihon` a day, for all PCs.

#include "base/public_holidays.h"
#include "store/setting_tables.h"

namespace common {

/// All of them; keys that name no day are passed over.
base::OwnHolidays read_own_holidays(store::SettingTables& tables);

/// Makes these the company's days, in one transaction. A name is as long as a field of the tables at most.
void keep_own_holidays(store::SettingTables& tables, const base::OwnHolidays& days);

} // namespace common
