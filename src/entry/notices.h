#pragma once

// What a cell makes of what was typed, in words for the person, where that may not be what was meant.

#include <QString>

namespace entry {

/// Said when the text is left in a cell of the column; empty if it stands as one would expect.
///   typed_notice(col::clock_in, u"2530") // "25:30 は 130 と入力します"
///   typed_notice(col::clock_in, u"8")    // "8 は 0:08 です（8時は 800）"
///   typed_notice(col::break_time, u"45") // ""
QString typed_notice(int column, const QString& typed);

/// Said when a key or a pasted text is refused in a cell of the column.
QString refused_notice(int column);

} // namespace entry
