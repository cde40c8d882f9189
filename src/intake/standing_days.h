#pragma once

// What stands typed of a day: the tables, and over them the draft of this PC.

#include "base/settings.h"
#include "common/saved_month.h"
#include "entry/draft.h"

#include <QHash>
#include <QSet>
#include <unordered_map>

namespace intake {

struct StandingDay {
    entry::TypedDay typed;
    bool blank = true; ///< nobody typed times, a break or a kind
    QString trouble{}; ///< why nothing can be laid over it, in words; empty if it can
};

/// One state of the tables and drafts, as they were when it was made; the database must outlive it.
/// What a person typed of a day, without the kind that a day without work gets by itself.
entry::TypedDay typed_by_person(entry::TypedDay day, const entry::DayKind& kind_without_work);

class StandingDays {
public:
    StandingDays(const base::Settings& settings, store::Database& rovdata);

    /// The date lies in the months that the company can have.
    StandingDay day(base::EmployeeKey employee, QDate date);

private:
    struct Month {
        entry::MonthAsRead days;
        QSet<int> clashes; ///< rows that somebody else changed as well
    };
    const Month& month_of(base::EmployeeKey employee, const base::CompanyMonth& month);
    void read_saved(entry::MonthAsRead& days, base::EmployeeKey employee, const base::CompanyMonth& month);
    void lay_draft(Month& read, base::EmployeeKey employee, const base::CompanyMonth& month) const;

    const base::Settings& m_settings;
    store::Database& m_rovdata;
    store::Transaction m_view;
    QMap<qint64, QMap<int, bool>> m_with_drafts; ///< months by employee
    entry::DayKind m_kind_without_work;
    std::unordered_map<int, common::SavedMonth> m_readers; ///< by the month's key
    QHash<std::pair<qint64, int>, Month> m_months;         ///< by employee and month
};

} // namespace intake
