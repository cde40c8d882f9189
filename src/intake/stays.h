#pragma once

// The lines of a recorder's file put together into days: clock-in and clock-out of one line, or stamps that belong
// together.

#include "intake/readings.h"

namespace intake {

/// An employee's day as the file has it. Where something is off, `reason` says what, and the day can't be taken over.
struct Stay {
    int employee = -1;
    QDate day{};
    std::optional<base::minutes> in{}; ///< since midnight of the day
    std::optional<base::minutes> out{};
    QList<int> readings{}; ///< of which it is made, in order of their times
    QString reason{};
};

/// Days of readings that have clock times; a day of several lines that don't agree has a reason. Readings that have
/// one, and those without any time, are in none.
QList<Stay> stays_of_lines(const QList<Reading>& readings);

/// Days of readings that are stamps (pairing.h): a stay belongs to the day of its first stamp. Of two stays on one day
/// both have a reason, and so has a stamp that was left alone.
QList<Stay> stays_of_stamps(const QList<Reading>& readings);

/// Clock-in and clock-out as they would stand in the cells of their day: "22:00" and "6:00".
struct ClockCells {
    QString clock_in;
    QString clock_out;
};
ClockCells cells_of(const Stay& stay);

} // namespace intake
