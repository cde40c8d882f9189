#pragma once

// What became of a file, in lines of text.

#include "intake/accept.h"

namespace intake {

QStringView outcome_words(Became became); ///< "登録", "下書き", "見送り"

/// A line of the file each, its columns parted by tabs: line number, employee, date, times, state, what became of it,
/// and why.   "12\t20 山田\t2026/11/02\t8:15～19:00\t新しい\t登録\t"
QStringList report(const Preview& preview, const Acceptance& taken);

/// "新しい 20行、同じ 3行、違う 0行、読めない 1行。"
QString summary(const Preview& preview);

} // namespace intake
