#pragma once

// What a box of a time makes of what was typed, in words for the person, where that may not be what was meant.

#include <QString>

namespace common {

/// What is typed: a time of day, the length of a break, or another length.
enum class TypedTime { Clock, Break, Length };

/// Empty if the text stands as one would expect.
///   typed_time_notice(TypedTime::Clock, u"8")    // "8 は 0:08 です（8時は 800）"
///   typed_time_notice(TypedTime::Clock, u"875")  // "8:75 は時刻になりません（分は 59 まで）"
///   typed_time_notice(TypedTime::Break, u"45")   // ""
QString typed_time_notice(TypedTime kind, const QString& typed);

/// How such a time is typed: said where something else was typed.
QString how_time_is_typed(TypedTime kind);

} // namespace common
