#pragma once

// The employee list beside the sheet, and its two orders.

#include "base/sheet.h"
#include "common/employee_order.h"
#include "store/database.h"

namespace entry {

/// Fills the list with every employee that has a `社員番号`, then sorts it.
void 社員マスター全呼出(base::Sheet& hyou_syain, store::Database& database, common::EmployeeOrder order);

/// Sorts the list; the cursor goes to the heading's last column.
void 社員リストソート処理(base::Sheet& hyou_syain, common::EmployeeOrder order);

} // namespace entry
