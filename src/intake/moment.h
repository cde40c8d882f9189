#pragma once

// How a recorder writes a day and a time of day.

#include "base/settings.h"
#include "base/time.h"

#include <QDate>
#include <optional>

namespace intake {

/// What dates are read by: the eras of the settings, and the day near which a year of two digits, or one that isn't
/// written, is meant.
struct Calendar {
    const base::Settings& settings;
    QDate today;
};

/// A date in half or full width; nothing if it is none.
///   "2026/11/25", "2026-11-25", "2026.11.25", "2026年11月25日(水)", "20261125"
///   "令和8年11月25日", "R8.11.25", "H30/1/5", "令和元年5月1日", "R081125"   // by the era table
///   "26/11/25", "8/11/25", "261125"    // 2000 or the present era, whichever lies nearer to today
///   "11/25", "1125"                    // the year in which it lies nearest to today
std::optional<QDate> read_date(const QString& text, const Calendar& calendar);

/// A day, a time, or both: "2026/11/25 08:30", "2026-11-25T08:30:00", "202611250830", "8:30". What isn't written is
/// nothing; `reason` says in words why what is written can't be read, and then both are nothing.
struct Moment {
    std::optional<QDate> date{};
    std::optional<base::minutes> time{}; ///< since midnight of the date, below 100 hours; seconds are dropped
    QString reason{};
};
Moment read_moment(const QString& text, const Calendar& calendar);

} // namespace intake
