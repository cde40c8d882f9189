#pragma once

// Days that the calendar shows as off: the public holidays of Japan, reckoned by rule, and the company's own days. They
// are for the eye alone: no day's kind and no figure follows from them.

#include <QDate>
#include <QMap>
#include <QString>

namespace base {

/// The name of the public holiday on a day of the years 2000 to 2099 as the law names it, "振替休日" for a substitute
/// day, "国民の休日" for a day between two holidays; empty for any other day.
/// Years to come are reckoned by the law as it stands, and their equinoxes by an approximation.
///   public_holiday({2026, 9, 22}) // "国民の休日"      public_holiday({2020, 7, 24}) // "スポーツの日"
QString public_holiday(QDate day);

/// The company's own days off and their names, by date number, or by month and day (mmdd) where they return each year.
using OwnHolidays = QMap<int, QString>;

/// What the calendar says of a day, both where it is both: "元日・年末年始"; empty for a day like any other.
QString holiday_name(QDate day, const OwnHolidays& own);

} // namespace base
