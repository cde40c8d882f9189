#pragma once

// Keys by the numbers under which a screen tells them apart. Typed characters are their own code.

namespace base::key {

inline constexpr int backspace = 8;
inline constexpr int enter = 13;
inline constexpr int escape = 27;
inline constexpr int left = 37;
inline constexpr int up = 38;
inline constexpr int right = 39;
inline constexpr int down = 40;
inline constexpr int minus = 45; ///< as a typed character
inline constexpr int del = 46;   ///< as a key down
inline constexpr int f1 = 112;   ///< as a key down

} // namespace base::key
