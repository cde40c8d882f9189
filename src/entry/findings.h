#pragma once

// What is off in a month: found by looking at the sheet alone, and told before it is saved. Nothing here is an error;
// each finding is something that a clerk mostly didn't mean.

#include "entry/sheet.h"
#include "store/setting_tables.h"

#include <QSet>
#include <span>

namespace entry {

enum class FindingKind {
    NotCalculated, ///< a clock time was typed and the day not yet calculated
    OneClockTime,  ///< a clock-in without a clock-out, or the reverse
    OutsideBands,  ///< minutes of the stay that no band of the work type counts
    BreakTooLong,  ///< a break longer than the stay
    LongStay,      ///< a stay above longest_stay
    Recount, ///< a total or a count that isn't what the days add up to; not asked while a day waits for its calculation
    NotReadBack, ///< a day that is saved under a key under which it isn't found again
};

inline constexpr base::minutes longest_stay = std::chrono::hours(16);

struct Finding {
    FindingKind kind;
    int row;      ///< of `hyou`; row::total where it is the month's
    QString text; ///< what is off, without the day: "退社時間がありません"
};

using FindingKinds = QSet<FindingKind>;

/// All findings of the month but those of the kinds left out, day by day, the month's own last; empty if nothing is
/// off. An employee without a work type has no minutes outside its bands. Costs less than a calculation of each day.
QList<Finding> findings(const MonthSheet& sheet, const FindingKinds& left_out = {});

/// The kinds that this PC doesn't look for, and from now on.
FindingKinds kinds_left_out(store::SettingTables& tables);
void leave_out(store::SettingTables& tables, const FindingKinds& kinds);

/// Whether any of them is gone once the days are calculated.
bool calculation_helps(const QList<Finding>& found);

/// What each kind is called where it is switched on or off, in the order of FindingKind.
std::span<const QStringView> finding_captions();

} // namespace entry
