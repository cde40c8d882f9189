#pragma once

// A work type into the store. A type is replaced whole, in one transaction.

#include "masters/deletions.h"
#include "masters/week_buffer.h"

namespace masters {

/// Deletes every row of the type, those of another hand for which the week has no place too, so that the type has one
/// name, and writes the bands of the week in which a start or an end stands; a band with only a category or only break
/// rules is dropped. A slot that is a text is written as its leading number.
void replace_work_type(store::Database& rovdata, qint64 number, const QString& name, const WeekBuffer& week);

/// Deletes every row of the type: one with a row left would still be listed.
Deletion delete_work_type(store::Database& rovdata, qint64 number);

} // namespace masters
