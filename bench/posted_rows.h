#pragma once

// Rows as many saves post them: for an employee and month the days, then the hours of each day's categories, the counts
// and the day kinds.

#include "store/database.h"

namespace bench {

inline constexpr int many_rows = 100'000;

/// One row of a save, as numbers: kind, employee, date, and what it carries.
struct Posted {
    int kind;
    int employee;
    int date;
    int value;
    int number;
};

/// The row of the number, from 0 on.
Posted posted(int index);

/// Posts them all in one transaction.
void post_many(store::Database& exchange);

} // namespace bench
