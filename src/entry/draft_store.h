#pragma once

// Drafts on this PC: a small database of its own beside `losys.mdb`, keyed like all others. It is made with the first
// draft; where there is none, nothing waits. What is kept is on the disk when the call returns.

#include "base/company_month.h"
#include "base/settings.h"
#include "entry/draft.h"

#include <QSet>

namespace entry {

/// A file that is damaged is put away beside, and its new name given back; empty if all is well.
QString put_away_damaged_drafts(const base::Settings& settings);

/// The draft of the employee's days in the month; empty if there is none. The counts are those of the month's key.
Draft read_draft(const base::Settings& settings, base::EmployeeKey employee, const base::CompanyMonth& month);

/// Makes the draft the one of its employee and month, in one transaction; an empty one takes the old one away.
void keep_draft(const base::Settings& settings, const Draft& draft, const base::CompanyMonth& month);

/// Who has drafts, by the employees' `システム番号`: the month keys of each, and whether something of it is unsaved.
struct DraftsWaiting {
    QMap<qint64, QMap<int, bool>> months_of;
    int months = 0;  ///< of them all
    int unsaved = 0; ///< likewise
};
DraftsWaiting drafts_waiting(const base::Settings& settings);
/// Those who have one of this month.
QSet<qint64> drafts_waiting(const base::Settings& settings, const base::CompanyMonth& month);

/// What a start says of them: "未登録の月が 3件あります"; empty if there are none, or if the file can't be read: that
/// is told where months are typed.
QString waiting_words(const base::Settings& settings);

/// The employee's month whose findings aren't to be told again.
bool is_checked(const base::Settings& settings, base::EmployeeKey employee, const base::CompanyMonth& month);
void set_checked(const base::Settings& settings, base::EmployeeKey employee, const base::CompanyMonth& month);

} // namespace entry
