#pragma once

// How this PC counts breaks, which the person chooses on the sheet and the calculation of every month of this PC goes
// by.

#include "entry/sheet.h"
#include "store/setting_tables.h"

namespace entry {

/// Included where nothing is kept, Deducted for any number but 0.
BreakHandling break_handling(store::SettingTables& tables);

void keep_break_handling(store::SettingTables& tables, BreakHandling handling);

} // namespace entry
