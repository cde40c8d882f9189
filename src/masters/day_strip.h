#pragma once

// The columns of the day strip of the work type editor: the seven days, then the day sets.

#include "base/work_week.h"

namespace masters {

inline constexpr int monday = 1;

constexpr bool is_day_set(int column) {
    return column >= base::weekday_count;
}

/// The day in the grid when the column is chosen.
constexpr int day_shown(int column) {
    return is_day_set(column) ? monday : column;
}

} // namespace masters
