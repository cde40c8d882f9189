#pragma once

// How the sheet of a month looks wherever one is shown: the characters and colours of the weekdays, the colour of the
// totals.

#include "base/company_month.h"
#include "base/public_holidays.h"
#include "base/sheet.h"

namespace base {

inline constexpr QStringView weekdays = u"日月火水木金土";
inline constexpr int sunday = 0;
inline constexpr int saturday = 6;

inline constexpr Rgb total_back{255, 200, 200};
inline constexpr Rgb sunday_fore{255, 0, 0};
inline constexpr Rgb saturday_fore{0, 0, 255};

inline constexpr int strip_width = 814; ///< twips; a column of the strip with the day counts

/// The character of a weekday, 0 is Sunday; empty for a number outside 0 to 6.
QString weekday_text(qint64 weekday);

/// Writes a date's day of the month and the character of its weekday, Sunday and Saturday in their colours, into the
/// first two cells of a row.
void show_date(Sheet& sheet, int row, QDate date);

/// Shows the month's holidays on its dates: the day of the month red, its weekday too where it has no colour of its
/// own, and the holiday's name as the tip of both.
void show_holidays(Sheet& sheet, const CompanyMonth& month, const OwnHolidays& own);

} // namespace base
