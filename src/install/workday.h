#pragma once

// One day of the made-up company in whole minutes: what the entry screen makes of two clock times.

#include "install/company.h"

#include <array>

namespace install {

struct Workday {
    base::minutes in{0};
    base::minutes out{0}; ///< past midnight: beyond 24 hours
    base::minutes pause{0};
    std::array<base::minutes, category_count> hours{}; ///< by category, Early first

    base::minutes work() const { return out - in - pause; }
};

/// The stay cut into the bands of the weekday, with the break that the bands' rules give.
Workday measure(const WorkType& type, int weekday, base::minutes in, base::minutes out);

} // namespace install
