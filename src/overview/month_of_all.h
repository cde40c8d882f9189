#pragma once

// A month of all employees as the tables hold it: only what one picture of it shows, so that a thousand employees are
// read while a page opens. One query a table, whatever the number of employees; what the tables hold of other months
// costs nothing.

#include "common/employee_order.h"
#include "entry/sheet.h"
#include "store/database.h"

#include <QMap>

namespace overview {

/// What is told of a day.
struct Day {
    bool clock_in = false;  ///< there is one
    bool clock_out = false; ///< there is one
    base::minutes work{0};
    qint64 kind = 0; ///< number of its kind; 0 is none
    QString kind_name;
    bool holiday_work = false; ///< `休出` of the kind: false is leave
};

enum class DayState {
    Blank, ///< nothing is told of it
    Worked,
    DayOff,       ///< it has the kind that a day without work gets by itself
    Leave,        ///< another kind of leave, with work or without
    HolidayWork,  ///< a kind of holiday work that isn't the usual one of a day with work
    OneClockTime, ///< as it stands, neither worked nor not
};

/// The kinds that days get by themselves, by their numbers; 0 where the company has set none.
struct UsualKinds {
    qint64 without_work = 0;
    qint64 with_work = 0;
};
UsualKinds usual_kinds(store::Database& rovdata);

DayState state_of(const Day& day, const UsualKinds& usual);

/// The days of a month by the rows of base::CompanyMonth; row 0 and those past its end are blank.
using Days = std::array<Day, base::total_row>;

struct EmployeeMonth {
    base::EmployeeKey key;
    QString number; ///< `社員番号`
    QString name;
    Days days;
    base::minutes work{0};             ///< the stored total
    QMap<qint64, base::minutes> hours; ///< the stored totals of the work categories, by their numbers
};

/// Of all employees who have a number, in this order; empty if there are none. Throws store::Error as every read does.
QList<EmployeeMonth> month_of_all(
    store::Database& rovdata, const base::CompanyMonth& month, common::EmployeeOrder order);

/// The minutes of a stored sum, which may be hours by the hundred.   duration(16030) // 160:30 as minutes
constexpr base::minutes duration(qint64 clock) {
    return base::minutes(clock / 100 * 60 + clock % 100);
}

/// A work category of the master.
struct CategoryName {
    qint64 number;
    QString name;
};
QList<CategoryName> category_names(store::Database& rovdata);

/// The days and totals as a sheet of attendance entry shows them.
void take_sheet(EmployeeMonth& employee, const entry::MonthSheet& sheet);

} // namespace overview
