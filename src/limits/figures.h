#pragma once

// What is judged of an employee, read from the tables: a month's hours and leave from its stored sums, which hold all
// its days, and the days of the month itself. Reads by key only, an employee at a time.

#include "limits/span.h"
#include "store/database.h"

#include <QList>
#include <QString>

namespace limits {

struct Hours {
    base::minutes overtime{0};
    base::minutes holiday_work{0};
    base::minutes all() const { return overtime + holiday_work; }
};

struct WorkedDay {
    QDate day;
    base::minutes work{0}; ///< the stay less the break
    base::minutes pause{0};
    friend bool operator==(const WorkedDay&, const WorkedDay&) = default;
};

struct Figures {
    base::EmployeeKey key;
    QString number;
    QString name;
    std::array<Hours, Span::months> hours{}; ///< of the month, of the one before, and so on back
    int half_days = 0;                       ///< of leave, in its year up to the month
    QList<WorkedDay> days{};                 ///< of the month
};

/// The employees who have this month or the one before saved, by their numbers. Throws store::Error.
QList<Figures> read_figures(store::Database& rovdata, const Span& span, const Rules& rules, int month_start_day);

} // namespace limits
