#pragma once

// The copies of the employee master: one in `comsys.mdb` and one in every data file of the suite that `allsystem`
// names. A change replaces the employee's row in each of them.
//
// Every copy is opened, locked and looked at before the first is written, and all are written before the first is
// committed; each file is a transaction of its own. So a file that can't be written, isn't a database or lacks a field
// stops the change while nothing has changed anywhere, and the error names that file. Copies are locked in the order
// of `allsystem`, so that two programs wait for each other and never in a ring.

#include "base/settings.h"
#include "masters/taken_rows.h"

namespace masters {

struct FieldText {
    QString name;
    QString text;
};

/// Deletes the employee of this `システム番号` in every copy and, unless `row` is empty, adds the row there. Gives back
/// what was deleted, for each copy.
/// Number fields take the numeric value of the text, the others the trimmed text. Fields of a copy that the row
/// doesn't name are left to their defaults. A listed file that is missing or has no table `syain` is passed over; one
/// that is listed twice counts once.
QList<TakenRows> replace_in_every_copy(const base::Settings& settings, qint64 number, const QList<FieldText>& row);

} // namespace masters
