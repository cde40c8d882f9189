#pragma once

// A month as it is saved: the one reader behind the month sheet of attendance entry and the attendance detail. It knows
// the tables, the keys of the month and what a stored zero shows as; where a figure goes is its caller's matter.
// Everything is read by key: what else the tables hold costs nothing. The statements are prepared once.

#include "base/company_month.h"
#include "base/system_number.h"
#include "store/database.h"

#include <QList>
#include <functional>

namespace common {

/// How a clock-out past midnight shows, which is the one thing that the callers mean differently.
enum class PastMidnight {
    AsTyped,  ///< the hour on the clock: 2530 is "1:30"
    AsStored, ///< counted on from the day's own midnight: 2530 is "25:30"
};

/// A saved day as the texts of its cells. Both clock times are empty where both are stored as 0; breaks and work of 0
/// are empty.
struct SavedDay {
    QString clock_in;
    QString clock_out;
    QString break_time;
    QString work_time;
    QString remark;
};

/// The kind of a saved day. Each text is made when it is asked for, and can be while the kind is shown.
class SavedKind {
public:
    explicit SavedKind(const store::Row& fields) : m_fields(fields) {}
    QString number() const;
    QString name() const;
    QString holiday_work() const; ///< `休出`

private:
    store::Row m_fields;
};

/// A day count other than 0.
struct SavedCount {
    QString tag;  ///< common/count_tag.h
    QString days; ///< in grouped digits
};

/// A saved day from five columns in a row: clock-in, clock-out, break, work time and remark.
SavedDay saved_day(const store::Row& fields, int first_column, PastMidnight past_midnight);

class SavedMonth {
public:
    /// The database must outlive the reader. Throws store::Error, as every read does; `show` mustn't begin the
    /// same read anew.
    SavedMonth(store::Database& rovdata, const base::CompanyMonth& month, PastMidnight past_midnight);

    /// Asks for all of an employee's month with whatever is read next. The next read of each figure has to be this
    /// employee's.
    void ask(base::EmployeeKey employee);

    /// What is saved of one employee, each figure with its row of the month, in order of the stored keys. The total's
    /// row comes with the days and the hours, and its clock times are empty each for itself where they are 0. Keys that
    /// are no row of the month are passed over.
    void days(base::EmployeeKey employee, const std::function<void(int row, const SavedDay&)>& show);
    void hours(
        base::EmployeeKey employee, const std::function<void(int row, qint64 category, const QString& time)>& show);
    void kinds(base::EmployeeKey employee, const std::function<void(int row, const SavedKind&)>& show);

    /// The day counts of the month.
    void counts(base::EmployeeKey employee, const std::function<void(const SavedCount&)>& show);

private:
    SavedDay day(int row, const store::Row& fields) const;
    bool bound(unsigned figure); ///< whether it stands ready to be read

    base::CompanyMonth m_month;
    PastMidnight m_past_midnight;
    int m_last_key; ///< of the days and the total, which may lie behind the last day
    store::Statement m_days;
    store::Statement m_hours;
    store::Statement m_kinds;
    store::Statement m_counts;
    unsigned m_asked = 0; ///< a bit for each figure
};

/// A day kind that the strip counts.
struct CountedKind {
    QString name;
    QString tag;
    bool leave;
};

/// All day kinds in the order of the strip: holiday work first, then the usual kind, then by number. They are asked for
/// with whatever is read next.
class CountedKinds {
public:
    explicit CountedKinds(store::Database& rovdata);
    QList<CountedKind> read();

private:
    store::Statement m_kinds;
};

inline QList<CountedKind> counted_kinds(store::Database& rovdata) {
    return CountedKinds(rovdata).read();
}

} // namespace common
