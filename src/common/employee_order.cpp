#include "common/employee_order.h"

#include "base/literals.h"
#include "base/numbers.h"

namespace common {

using namespace base;

namespace {

const QString key = u"社員MLソート"_s;

} // namespace

EmployeeOrder employee_order(store::SettingTables& tables) {
    return Val(tables.設定読込(store::losystem, key)) == 0 ? EmployeeOrder::Registered : EmployeeOrder::Numbered;
}

void keep_employee_order(store::SettingTables& tables, EmployeeOrder order) {
    tables.設定書込(store::losystem, key, digits(int(order)));
}

} // namespace common
