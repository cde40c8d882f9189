#pragma once

// Reading text from a spreadsheet: its lines and columns, and the ways in which a time is written there.

#include "base/time.h"

#include <QList>
#include <QStringList>
#include <optional>

namespace entry {

/// Lines of columns, parted by tabs. A cell that begins with a quotation mark goes on to the next single one; line
/// breaks in it become blanks. The empty line behind the last line break is none.
QList<QStringList> pasted_lines(const QString& text);

/// A time, or the reason in words why the text isn't one.
struct PastedTime {
    std::optional<base::ClockNumber> clock; ///< from 0:00 up to 99:59
    QString reason;
};

enum class TimeMeaning { Clock, Duration };

/// "8:30", "830", "08:30:00", "8時30分", "8時半", "8時", in half or full width. Two digits or one are minutes of a
/// duration from 9 on; below, and as a clock time, hours may be meant as well, and they aren't read.
PastedTime pasted_time(const QString& text, TimeMeaning meaning);

} // namespace entry
