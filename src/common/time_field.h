#pragma once

// A time as the tables hold it, as the text of a cell.

#include "base/time.h"
#include "store/database.h"

namespace common {

/// A stored clock number or duration as time text; an empty field stays empty.   830 // "8:30"
inline QString time_field(const store::Row& row, int column) {
    return base::time_to_text(row.text(column));
}

/// The same, and empty for 0.
inline QString time_field_without_zero(const store::Row& row, int column) {
    return base::without_zero(time_field(row, column));
}

/// Whether a day has no clock times, as the texts of two fields: both are stored as 0.
inline bool no_clock_times(QStringView clock_in, QStringView clock_out) {
    return clock_in == u"0:00" && clock_out == u"0:00";
}

} // namespace common
