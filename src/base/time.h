#pragma once

// The three forms of a time, and the only bridges between them.
//   clock number  830, 1715, 2530   hours x 100 + minutes, as stored; a type of its own
//   time text     "8:30", "25:30"   as shown in cells; no leading zero on the hour
//   minutes       510               std::chrono::minutes, for arithmetic only
// Empty text counts as the clock number 0. There is no rounding and no error: what can't be read counts as 0.

#include <QString>
#include <QStringView>
#include <chrono>
#include <compare>

namespace base {

using std::chrono::minutes;

/// A time of day or a duration as hours x 100 + minutes. Values of 2400 and above lie on the next day.
struct ClockNumber {
    qint64 value = 0;
    friend auto operator<=>(const ClockNumber&, const ClockNumber&) = default;
};

/// Only the last four digits count.   time_to_minutes({830}) // 510      time_to_minutes({12345}) // 23:45 as minutes
minutes time_to_minutes(ClockNumber clock);

/// The same, one day later.           next_day_minutes({130}) // 25:30 as minutes
minutes next_day_minutes(ClockNumber clock);

/// minutes_to_time(1530min) // 2530   minutes_to_time(-90min) // -130
ClockNumber minutes_to_time(minutes time);

/// The end of a span: on the next day if the end number is below the start number.
///   end_minutes({2200}, {500}) // 29:00 as minutes      end_minutes({900}, {900}) // 9:00 as minutes
minutes end_minutes(ClockNumber start, ClockNumber end);

/// Digits to time text. Empty stays empty, text with ":" stays as it is; up to four digits are padded on the left,
/// five have three digits of hours, six have four, longer text stays as it is.
///   time_to_text(u"830") // "8:30"    time_to_text(u"5") // "0:05"    time_to_text(u"12345") // "123:45"
QString time_to_text(QStringView digits);
QString time_to_text(ClockNumber clock);

/// The time text, and empty for "0:00": the form of a cell that shows no zero.
QString time_to_cell(ClockNumber clock);

/// The text as it is, and empty for "0:00".
QString without_zero(const QString& time_text);

/// Time text to the digits of its clock number. Empty stays empty, text without ":" stays as it is.
///   text_to_time(u"25:30") // "2530"  text_to_time(u"0:05") // "5"
QString text_to_time(QStringView text);

/// The clock number of a cell: the number of text_to_time, 0 for an empty cell.
ClockNumber clock_of(QStringView cell);

/// The minutes of a cell, 0 for an empty cell.
minutes minutes_of(QStringView cell);

} // namespace base
