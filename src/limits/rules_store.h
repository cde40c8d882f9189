#pragma once

// The rules of the company in `rov_kihon`, for all PCs. What isn't kept there is as usual.

#include "limits/rules.h"
#include "store/setting_tables.h"

namespace limits {

struct Named {
    qint64 number;
    QString name;
    friend bool operator==(const Named&, const Named&) = default;
};

/// The work categories and the day kinds, by number. A half day may be a kind of working day.
struct Countable {
    QList<Named> categories;
    QList<Named> day_kinds;
};
Countable countable(store::Database& rovdata);

struct KeptRules {
    Rules rules;
    bool chosen; ///< false: nobody has said yet what counts, and it is taken from the names
};

/// A figure out of its range is as usual.
KeptRules read_rules(store::SettingTables& tables, const Countable& countable);

/// Keeps all but whom they aren't looked at for. `before` is as it was read: what isn't changed isn't written, so that
/// what another PC chose meanwhile stays.
void keep_rules(store::SettingTables& tables, const Rules& rules, const KeptRules& before);

/// Keeps what the rules don't look at for the employee.
void keep_free(store::SettingTables& tables, base::EmployeeKey employee, const Rules& rules);

} // namespace limits
