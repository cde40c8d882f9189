#pragma once

// Single stamps made into stays. Stamps without a direction could be paired in many ways; the reading is taken in which
// the stays are shortest and the fewest stamps are left alone, over all stamps of the employee at once. So a forgotten
// stamp doesn't shift those behind it, and a night shift's clock-out finds the clock-in of the evening before.

#include "intake/profile.h"

#include "base/time.h"

#include <QDate>

namespace intake {

/// A stamp, in minutes from a midnight that all stamps share.
struct Stamp {
    qint64 at = 0;
    Direction direction = Direction::Unknown; ///< never Other
    int line = 0;                             ///< its place in the file
};

/// Stamps that belong together, in order of their times: the first is the clock-in and the last the clock-out.
using StampGroup = QList<Stamp>;

/// Stamps of one direction that follow each other within this time are one that was pressed twice.
inline constexpr base::minutes double_stamp{3};

/// The groups of one employee's stamps, in order; those between the first and the last of a group are no clock times.
QList<StampGroup> paired(QList<Stamp> stamps);

/// Whether the group is one stamp that has no other, pressed once or more often.
bool is_alone(const StampGroup& group);

} // namespace intake
