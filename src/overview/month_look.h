#pragma once

// What is to be known of an employee's month beyond its picture: what is off in it, what of it lies in this PC's draft,
// and its sums. The months are looked at one by one, so that a page can do it in slices while it is in view.

#include "base/settings.h"
#include "common/closed_months.h"
#include "common/saved_month.h"
#include "entry/findings.h"

#include <QHash>
#include <QSet>

namespace overview {

struct EmployeeLook {
    QList<entry::Finding> findings; ///< with the draft laid over the saved month, as attendance entry shows it
    QSet<int> draft_rows;           ///< days that are typed and not saved
    QSet<int> clash_rows;           ///< of those, the days that another PC changed as well
    bool draft = false;             ///< there is one, if only of a count
    bool typed = false;             ///< somebody typed a time, a break, a remark or a kind
    common::KeptSums sums;          ///< of the saved month

    /// Whether something stands against closing the month.
    bool is_off() const { return !findings.isEmpty() || draft || !typed; }
};

class MonthLook {
public:
    /// The database must outlive the look. Findings of the kinds left out aren't looked for.
    MonthLook(const base::Settings& settings, store::SettingTables& tables, store::Database& rovdata,
        const base::CompanyMonth& month);

    /// The employee's month as the tables hold it.
    entry::MonthSheet saved(base::EmployeeKey employee);

    /// Looks at one employee's month as it is now. `laid` is given the month where a draft lies over it.
    EmployeeLook look(base::EmployeeKey employee, const std::function<void(const entry::MonthSheet&)>& laid = {});

private:
    const entry::MonthSheet& empty_sheet(qint64 work_type);
    void lay(EmployeeLook& look, entry::MonthSheet& sheet, base::EmployeeKey employee) const;

    const base::Settings& m_settings;
    store::Database& m_rovdata;
    entry::FindingKinds m_left_out;
    common::SavedMonth m_saved;
    entry::MonthSheet m_empty;                   ///< of an employee without a work type
    QHash<qint64, entry::MonthSheet> m_of_types; ///< the empty sheet of each work type
    QHash<qint64, qint64> m_types;               ///< the employees' work types
    QSet<qint64> m_with_drafts;
};

/// What was summed, by the name that it has in common::KeptSums: the break, the work, the hours of a category; the same
/// as the work type of today counts the days; a count of days.
namespace sum {
inline const QString breaks = QStringLiteral("休憩");
inline const QString work = QStringLiteral("勤務");
inline const QString category = QStringLiteral("勤務種類");
inline const QString counted = QStringLiteral("計算"); ///< begins those that are counted anew
inline const QString days = QStringLiteral("日数");
} // namespace sum

/// The sums that the sheet shows, and those that its days would have if the work type counted them now; sums of 0 are
/// left out. How breaks are shown on this PC doesn't enter.
common::KeptSums sums_of(const entry::MonthSheet& sheet);

} // namespace overview
