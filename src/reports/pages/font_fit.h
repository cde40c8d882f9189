#pragma once

// How large a text is printed so that it fits its column. Widths are reckoned in half-width characters: a full-width
// one is two of them.

#include <QString>

namespace reports {

inline constexpr double cell_size = 9.1;    ///< points; of a cell that needs no smaller letters
inline constexpr double heading_size = 8.9; ///< points
inline constexpr double half_width = 1.65;  ///< mm that centring reckons for a half-width character of these sizes

/// The size in points, 4 to 12, for a text that begins `位置` mm right of the left edge of a column of `幅` mm; 0 for
/// an empty text. `標準サイズ` is what a text with plenty of room gets, and may be smaller than what one with less room
/// gets:
///   文字サイズ決定(28, 0, u"0123456789", 9) // 9      文字サイズ決定(27.9, 0, u"0123456789", 9) // 12
double 文字サイズ決定(double 幅, double 位置, QStringView 文字列, double 標準サイズ);

/// The beginning of the text that `幅` mm have room for in the smallest letters there are; no full-width character is
/// cut in two.
QString cut_to_room(QStringView 文字列, double 幅);

/// The left inset that centres the text in a column of `幅` mm; below 0 for a text that is wider.
double centred_inset(double 幅, QStringView 文字列);

} // namespace reports
