#pragma once

// What the tallies share: reading the conditions, the headings they begin with, the employees' order, and the signs of
// life of long work.

#include "base/company_month.h"
#include "reports/tallies/report.h"
#include "store/database.h"

namespace reports {

/// System numbers, first not above last. Both 0: no employee was chosen.
struct EmployeeRange {
    qint64 first = 0;
    qint64 last = 0;
    bool empty() const { return first == 0 && last == 0; }
};

/// The range in `systancd`, turned where it was given the wrong way round. An empty end is 0 and so the first:
///   "7", "3" // 3 to 7      "7", "" // 0 to 7      "", "" // empty()
EmployeeRange chosen_employees(const Conditions& conditions);

/// The first and the last employee of the table, the system's own row 0 apart; empty if there is none.
EmployeeRange all_employees(store::Database& rovdata);

/// "【first name～last name】"; empty if no number was typed.
QString chosen_names(const Conditions& conditions);

/// The month in `yyyymm`; nothing if the boxes hold none.
std::optional<base::CompanyMonth> chosen_month(const Conditions& conditions, const frame::Session& session);

/// Dates as date numbers, first not after last. An open end holds what no day lies beyond.
struct DateRange {
    static constexpr int open_first = 1'01'01;
    static constexpr int open_last = 9999'12'31;
    int first = open_first;
    int last = open_last;
    bool one_day() const { return first == last; }
};

/// The range in `ymd`, turned where it was given the wrong way round. A box without a date leaves its end open.
DateRange chosen_dates(const Conditions& conditions, const frame::Session& session);

/// The headings as every format leaves them: the title alone, and no selection.
void set_title(Report& report, const QString& title);

/// Sorts the rows below the fixed ones as this PC's lists of employees are sorted: by the system numbers in `key_col`,
/// or by the employee numbers in `number_col` as text.
void sort_employees(base::Sheet& hyou, const frame::Session& session, int key_col, int number_col);

/// The company's data, for reading. Throws store::Error where it can't be opened.
store::Database open_rovdata(const frame::Session& session);

/// The names of the work categories by system number, looked up once a tally.
QHash<qint64, QString> category_names(store::Database& rovdata);

/// Tells how far the work is. False: the person wants it to end.
bool goes_on(const Work& work, qint64 done, qint64 total);

} // namespace reports
