#pragma once

// The employee list beside the sheet, and its two orders.

#include "base/sheet.h"
#include "store/database.h"

namespace entry {

enum class EmployeeOrder {
    Registered = 0, ///< "登録順": by `システム番号`
    Numbered = 1,   ///< "番号順": by `社員番号`
};

/// Fills the list with every employee that has a `社員番号`, then sorts it.
void 社員マスター全呼出(base::Sheet& hyou_syain, store::Database& database, EmployeeOrder order);

/// Sorts the list; the cursor goes to the heading's last column.
void 社員リストソート処理(base::Sheet& hyou_syain, EmployeeOrder order);

} // namespace entry
