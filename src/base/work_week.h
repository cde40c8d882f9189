#pragma once

// The size of a work type's week, in the store and on every screen that shows it.

namespace base {

inline constexpr int weekday_count = 7; ///< `曜日` 0 to 6, 0 is Sunday
inline constexpr int band_count = 10;   ///< of a weekday; `連番` 1 to 10

} // namespace base
