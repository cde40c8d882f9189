#pragma once

// Applying posted rows to the tables of `rovdata.mdb`, so that each counts exactly once.
//
// A batch is taken in two steps that no transaction spans: its rows go into the tables in one transaction of
// `rovdata.mdb`, and only then leave the exchange file in one transaction there. Applying the same rows again changes
// nothing, so a kill between the two is healed by the next run. The exchange file's write lock is held over both, so
// that what leaves is exactly what was applied.
//
// Each row replaces what stands under its employee and date (or month). Where several rows make up one such fact, the
// hours by category and the counts of a month, only the first row of an employee and date in an unbroken run removes,
// and the run's others add to it. A run is a stretch of rows of one kind, as one save posts them: a row of another kind
// ends it, an unreadable row of the same or of no known kind doesn't. A batch never ends inside a run. A row that
// counts 0 hours or days, or names leave 0, is not inserted. A month of which no count is posted at all keeps its
// counts.
//
// A row that can't be read moves with its reason to table `jyusin_error` of its file, in the transaction in which the
// others leave; its line for the person is written just before that, so that a kill may repeat the line but never loses
// it.

#include "store/database.h"

#include <QString>
#include <functional>

namespace exchange {

struct Watch {
    std::function<void(const QString& message)> trouble = [](const QString&) {}; ///< a line for the person
    std::function<void(qint64 rows)> taken = [](qint64) {};                      ///< rows taken so far in this file
};

/// Rows after which a batch ends with its run.
inline constexpr qint64 batch_rows = 250'000;

/// Takes every row of the exchange file; how many were taken, unreadable ones among them, 0 for an empty file.
/// `may_take` is asked before each batch, with the exchange file locked; false ends the work. Throws store::Error,
/// whose file() tells which of the two failed; batches taken before stay taken, and the rows of the one that failed
/// stay in the exchange file.
qint64 apply_rows(store::Database& exchange, store::Database& rovdata, const Watch& watch,
    const std::function<bool()>& may_take, qint64 batch = batch_rows);

} // namespace exchange
