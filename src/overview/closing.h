#pragma once

// Closing a month: what stands against it, the closing itself in a turn with the sums kept, opening it again, and what
// became different since.

#include "frame/session.h"
#include "overview/picture.h"

namespace overview {

/// An employee's month, or a day of it, of which something is to be told.
struct Told {
    base::EmployeeKey employee;
    int row; ///< of the company month; base::total_row where it is the month's
    QString who;
    QString what;
};

/// What stands against closing, employee by employee: what is off, days that aren't saved, and nobody having typed
/// anything. Empty if nothing does; a month may be closed all the same.
QList<Told> against_closing(std::span<const PictureRow> rows, const base::CompanyMonth& month);

enum class Closed {
    Yes,
    No, ///< the person was told why
};

/// Closes the month with the sums as the tables hold them in this turn. Waits for what was saved and isn't in them yet;
/// if that takes too long, if the turn isn't to be had or if somebody saved meanwhile, nothing is closed.
Closed close(frame::Session& session, const base::CompanyMonth& month, const QList<base::EmployeeKey>& employees);

/// Asks, and opens the closed month again. False if it stays closed.
bool reopen(frame::Session& session, const base::CompanyMonth& month);

/// What the sums are called, by their names in common::KeptSums: "勤務種類11" is "残業".
QHash<QString, QString> sum_names(store::Database& rovdata);

/// What differs in the looks of today from the sums that were kept, then and now: "残業 10:00 → 11:30". A difference
/// that the days would have if the work type of today counted them is told as that.
QList<Told> changed_since_closing(std::span<const PictureRow> rows,
    const QHash<base::EmployeeKey, common::KeptSums>& kept, const QHash<QString, QString>& names);

} // namespace overview
