#pragma once

// The month, employee and day that a page is left with, so that the next one opens there.

#include "base/system_number.h"

#include <QDate>

namespace frame {

struct MonthInHand {
    int month = 0;                ///< yyyymm; 0 is none
    base::EmployeeKey employee{}; ///< may be none
    QDate day{};                  ///< invalid: none in particular
    bool only_off = false;        ///< the overview shows only those of whom something is off
};

} // namespace frame
