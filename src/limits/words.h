#pragma once

// What is judged, in words: for the columns of the list, for the lines beneath it, and the one word of an overview.

#include "limits/judgement.h"

namespace limits {

QStringView caption_of(Measure measure); ///< "時間外（月）"
QStringView level_word(Level level);     ///< "超過", "注意"; empty for Fine

/// The figure beside its limit: "38:20 / 45:00", "3.5 / 5日", "2日" for breaks. Empty where it isn't looked at.
QString figure_text(const Judged* judged);

/// The limit that is nearest: "時間外（年） 352:10 / 360:00", "年休 あと 1日（残り 5か月）"; empty if none is looked
/// at.
QString nearest_text(const Judgement& judgement, const Span& span);

/// What is over or near its limit, a line each, in words, and behind it the days with too short a break.
QStringList lines_of(const Judgement& judgement, const Rules& rules, const Span& span);

/// What is over or near its limit, in a word or two: "時間外超過", "年休注意"; empty where nothing is.
QString overview_word(const Judgement& judgement);

} // namespace limits
