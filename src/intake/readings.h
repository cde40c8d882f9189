#pragma once

// What each line of a recorder's file says by itself.

#include "intake/employees.h"
#include "intake/moment.h"
#include "intake/profile.h"

namespace intake {

struct Reading {
    int employee = -1; ///< index in the employees
    QDate day{};
    std::optional<base::minutes> in{};  ///< clock times and the stamp since midnight of the day
    std::optional<base::minutes> out{}; ///< of the following day, where it is earlier than the clock-in
    std::optional<base::minutes> stamp{};
    Direction direction = Direction::Unknown;
    QString reason{}; ///< why the line can't be understood, in words; empty if it can

    bool has_times() const { return in || out || stamp; }
};

/// A reading a line, of those below the headings in order; the first is that of line profile.heading_lines. The profile
/// has no problem().
QList<Reading> read_lines(
    const RecorderFile& file, const Profile& profile, const Employees& employees, const Calendar& calendar);

} // namespace intake
