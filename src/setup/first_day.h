#pragma once

// The box of the first day of the company month, in words.

#include <QString>

namespace setup {

/// Said where what was typed isn't the day that is stored: no day from 1 to 31, or something that is no digit. Empty
/// where it is.
///   typed_first_day_notice(u"40")   // "40 は 1 日として登録します（1～31 を入力します）"
///   typed_first_day_notice(u"11日") // "数字だけを入力します（10日なら 10）"
QString typed_first_day_notice(const QString& typed);

} // namespace setup
