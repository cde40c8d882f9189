#pragma once

// Dates under the display setting: Western years (`date_style` 0) or the years of the Japanese era in force today
// (`date_style` 1). Conversions use the era of today, never that of the date typed: people enter dates of the present
// era. An era table without an era of today leaves every era conversion with its input unchanged.

#include "base/settings.h"

#include <QDate>
#include <QString>
#include <optional>

namespace base {

/// Index in the era table of the era in force on the day; nothing if none is.
std::optional<int> era_of(const Settings& settings, QDate today);

/// Whether dates are shown and typed in era years: `date_style` 1 on a day with an era in force.
bool era_years(const Settings& settings, QDate today);

/// The year of a day as the lists of years show it. Where no era is in force it is the Western one.
QString shown_year(QDate day, const Settings& settings, QDate today);

/// A date typed in era years to a Western date; called for `date_style` 1 only. Empty and "0" come back unchanged.
///   和暦西暦変換(u"161003", ...) // "20041003"      和暦西暦変換(u"16/10/3", ...) // "20041003"
QString 和暦西暦変換(const QString& text, const Settings& settings, QDate today);

/// A date number to what is shown: year/month/day without leading zeros. Empty and "0" come back unchanged.
///   日付表示変換(u"20041003", Western, ...) // "2004/10/3"      in era years // "16/10/3"
/// Text with slashes is normalised to yyyy/mm/dd under `date_style` 0.
QString 日付表示変換(const QString& date, const Settings& settings, QDate today);

/// A date number to long text: "2004年 10月 3日", or with the era name and year: "平成 16年 10月 3日".
/// Empty and "0" come back unchanged.
QString 日付文字変換(const QString& date, const Settings& settings, QDate today);

/// A slashed date to digits: "2004/10/3" to "20041003"; in era years the year has two digits: "16/10/3" to "161003".
/// Text without a slash comes back unchanged.
enum class YearForm { Western, Era };
QString 日付連結(const QString& text, YearForm form);

/// The date number of a typed date under the display setting: 和暦西暦変換 where eras are shown, 日付連結 otherwise.
int western_date_number(const QString& text, const Settings& settings, QDate today);

} // namespace base
