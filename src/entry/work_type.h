#pragma once

// The employee's work type: which one it is, and its schedule brought into a form that the calculation can index by
// weekday and band, with one sheet column for each work category that it uses. The type in force today serves all
// months.

#include "common/saved_month.h"
#include "entry/sheet.h"
#include "store/database.h"

namespace entry {

struct WorkType {
    QString kintypecd; ///< its number; empty if the employee has none
    QString name;      ///< "設定なし" if there is none, or if it has no bands
};

/// The work type of an employee.
WorkType 時間外フォーム呼出処理(store::Database& database, base::EmployeeKey employee);

/// Fills `band_table` and `category_list`, adds the category columns to `hyou` and the day kinds and categories to the
/// count strip. Type 0 empties the schedule and adds nothing: such an employee has nothing to count or to measure
/// against. Bands whose category isn't in the master, or whose weekday or band number has no slot, are passed over.
void 勤務タイプデーター呼出処理(MonthSheet& sheet, store::Database& database, base::WorkTypeKey type);

/// Both for an employee's type, which are asked for with whatever else is read next.
class TypeOfEmployee {
public:
    TypeOfEmployee(store::Database& database, base::EmployeeKey employee);
    WorkType read(MonthSheet& sheet);

private:
    store::Statement m_types;
    store::Statement m_bands;
    common::CountedKinds m_kinds;
};

} // namespace entry
