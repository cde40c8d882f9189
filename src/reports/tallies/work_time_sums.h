#pragma once

// What report 5 sums of a date range, an employee at a time, before any of it is text. Reads by key only: what else the
// tables hold costs nothing.

#include "base/time.h"
#include "reports/tallies/report.h"
#include "reports/tallies/selection.h"
#include "store/database.h"

#include <QHash>
#include <QMap>

namespace reports {

/// The last stored day of a one-day range, as its cells show it.
struct OneDay {
    QString clock_in;
    QString clock_out;
    QString remark;
};

struct EmployeeSums {
    qint64 key = 0;
    QString number;
    QString name;
    base::minutes breaks{};
    base::minutes work{};
    OneDay day; ///< empty over a longer range
    QString leave;
    QHash<qint64, base::minutes> hours; ///< by category
};

class WorkTimeReader {
public:
    /// The database must outlive the reader. Throws store::Error, as next() does.
    WorkTimeReader(store::Database& rovdata, const EmployeeRange& employees, const DateRange& dates);

    /// Sums of the next employee who has attendance in the date range, by system number; nothing when there is none
    /// left. The months' totals, stored as day 32, don't count.
    std::optional<EmployeeSums> next();

    /// Names of the categories that were met, by system number.
    const QMap<qint64, QString>& categories() const { return m_met; }

    /// Those of the range, with attendance or without.
    qint64 employee_count() const { return m_staff.size(); }

private:
    struct Person {
        QString number;
        QString name;
    };
    using Staff = QHash<qint64, Person>;

    static Staff staff_of(store::Database& rovdata, const EmployeeRange& employees);
    bool go_to_next_employee();
    bool add_days(EmployeeSums& sums);
    void add_hours(EmployeeSums& sums);
    void add_leave(EmployeeSums& sums);

    EmployeeRange m_employees;
    DateRange m_dates;
    qint64 m_employee; ///< the one in hand
    Staff m_staff;
    QHash<qint64, QString> m_categories;
    QMap<qint64, QString> m_met;
    store::Statement m_next;
    store::Statement m_days;
    store::Statement m_hours;
    store::Statement m_leave;
};

} // namespace reports
