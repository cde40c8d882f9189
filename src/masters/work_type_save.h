#pragma once

// A work type into the store. A type is replaced whole, in one transaction.

#include "masters/deletions.h"
#include "masters/week_buffer.h"

namespace masters {

/// What is stored of a band of the week: the fields from `開始時間` on in the order of the table.
using StoredBand = std::array<qint64, 10>;

/// Nothing for a band that is dropped: one without start and end, though a category or break rules stand in it. A slot
/// that is a text counts as its leading number.
std::optional<StoredBand> stored_band(const WeekBuffer& week, int weekday, int band);

/// Deletes every row of the type, those of another hand for which the week has no place too, so that the type has one
/// name, and writes the bands of the week as stored_band() gives them.
void replace_work_type(store::Database& rovdata, qint64 number, const QString& name, const WeekBuffer& week);

/// The name of the type as it is in the table; empty if there is none.
QString stored_name(store::Database& rovdata, qint64 number);

/// Deletes every row of the type: one with a row left would still be listed.
Deletion delete_work_type(store::Database& rovdata, qint64 number);

} // namespace masters
