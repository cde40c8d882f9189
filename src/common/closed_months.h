#pragma once

// Closed months, for all PCs: whether a month is closed, since when and by which PC, and the sums that it had then. A
// closed month takes no saves. The file is made when the first month is closed; without it no month is.

#include "base/settings.h"
#include "base/system_number.h"

#include <QDateTime>
#include <QHash>
#include <QMap>
#include <optional>

namespace common {

/// A deliberate act, with its time and the PC that did it.
struct Noted {
    QDateTime time; ///< to the second
    QString pc;
};

struct Closing {
    Noted closed;
    std::optional<Noted> reopened; ///< nothing: the month is closed now
};

/// What is kept of an employee's month, by what was summed ("勤務", "勤務種類11", "日数k1"): minutes, or days.
using KeptSums = QMap<QString, qint64>;

/// This moment on this PC. An unnamed PC is "".
Noted noted_now(const QDateTime& now);

/// The month's closings in order; months are yyyymm. Empty if it never was closed.
QList<Closing> closings_of(const base::Settings& settings, int month);

/// Since when the month is closed; nothing if it isn't. One look at the file's existence where no month ever was.
std::optional<Noted> closed_since(const base::Settings& settings, int month);

/// Closes the month with the sums that its employees have, in one transaction. A month that is closed stays as it is,
/// and false is given back.
bool close_month(
    const base::Settings& settings, int month, const Noted& by, const QHash<base::EmployeeKey, KeptSums>& sums);

/// Opens a closed month again; its sums stay. False if it isn't closed.
bool reopen_month(const base::Settings& settings, int month, const Noted& by);

/// The sums as they were when the month was closed last.
QHash<base::EmployeeKey, KeptSums> kept_sums(const base::Settings& settings, int month);

/// "2026年11月は締められています（2026/12/01 09:05 PC名）"
QString closed_words(int month, const Noted& since);

} // namespace common
