#pragma once

// Why a day has its figures, in one line: from the same value that was written into its cells.

#include "entry/sheet.h"

namespace entry {

/// "8:15～19:00 在社 10:45 − 休憩 1:00 ＝ 勤務 9:45（普通 9:00　残業 1:30　時間帯外 0:15　休憩 普通 8:00以上で 1:00）".
/// Empty for a row that is no day, or has no clock times.
QString explained_day(const MonthSheet& sheet, int r);

} // namespace entry
