#pragma once

// The order of the lists of employees, which the person chooses on one screen and finds on every other of this PC.

#include "store/setting_tables.h"

namespace common {

enum class EmployeeOrder {
    Registered = 0, ///< "登録順": by `システム番号`
    Numbered = 1,   ///< "番号順": by `社員番号`
};

/// What stands beside the choices, in their order.
inline constexpr QStringView employee_order_captions[] = {u"登録順", u"番号順"};

/// The order kept for this PC: Registered where none is, Numbered for any number but 0.
EmployeeOrder employee_order(store::SettingTables& tables);

void keep_employee_order(store::SettingTables& tables, EmployeeOrder order);

} // namespace common
