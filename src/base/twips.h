#pragma once

// Twips, in which sheets and forms have their sizes.

namespace base {

inline constexpr int twips_an_inch = 1440;
inline constexpr int twips_a_pixel = twips_an_inch / 96; ///< of a screen with 96 pixels an inch

} // namespace base
