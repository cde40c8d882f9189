#pragma once

// Reading a saved month back into the sheet.

#include "base/settings.h"
#include "common/saved_month.h"
#include "entry/work_type.h"

namespace entry {

/// Reads the employee's saved days, hours, counts and day kinds of the sheet's month into the empty sheet.
/// Counts shown are the saved ones; nothing is computed. Figures of a category that has no column are passed over.
/// Clock-outs past midnight show as the small hour ("25:30" as "1:30"); a day saved with both clock times 0 shows both
/// blank. Reads by key only: what else the tables hold costs nothing.
void 勤務時間取得(MonthSheet& sheet, store::Database& database, base::EmployeeKey employee);
/// The same for many employees of one month: the reader is that of the sheet's month, past midnight as it is typed.
void 勤務時間取得(MonthSheet& sheet, common::SavedMonth& saved, base::EmployeeKey employee);

/// A month as the tables held it, and at which state of theirs.
struct MonthInTables {
    QByteArray state;
    MonthSheet sheet;
};

/// Reads all that the sheet shows of the employee's month, in one view of the tables: the work type with its schedule,
/// and the saved month. The sheet is the empty one of the month.
WorkType read_month(MonthSheet& sheet, store::Database& database, base::EmployeeKey employee);
/// The same, and tells what the tables held.
WorkType read_month(MonthSheet& sheet, store::Database& database, base::EmployeeKey employee, MonthInTables& in_tables);

/// The employee's month as the tables hold it, with the columns of `like`.
MonthSheet month_in_tables(const MonthSheet& like, const base::Settings& settings, base::EmployeeKey employee);

/// The employee's month as it is stored once the rows that wait are applied: those of the kept files and of the open
/// exchange file, laid over the tables. Reads only; the sheet has the columns of `like`. As long as the
/// exchange file is held against writers, nothing comes to it. The tables are read if they don't stand any more as they
/// did for `in_tables`, which is the same employee's month, or nobody's; it is brought up to date then.
MonthSheet month_as_stored(const MonthSheet& like, const base::Settings& settings, store::Database& exchange,
    base::EmployeeKey employee, MonthInTables& in_tables);

/// Takes off the strip's unused columns behind the last one that has a name; the two fixed sums stay.
void trim_strip(base::Sheet& hyou_day);

} // namespace entry
