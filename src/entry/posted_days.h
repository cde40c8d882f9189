#pragma once

// What becomes of days that were posted: their rows wait, come into the tables, or get lost on the way. Plain functions
// over drafts and months; nothing here reads or writes.

#include "entry/draft.h"

namespace entry {

/// Whether the day was posted since its month was read: as it is typed, or beneath what is typed now.
bool was_posted(const DraftDay& day);

/// Drafts of an earlier version don't tell what lies beneath their posted days; it is what was read then.
void know_what_lies_beneath(QList<DraftDay>& days);

/// Whether a day that stands as it was posted has come into the tables: they hold it, or something else than lay
/// beneath it. No for a day that was typed anew since.
bool arrived(const DraftDay& day, const MonthSheet& stored);
/// The same of a day as it was posted.
bool arrived(const PostedDay& day, const MonthSheet& stored, int r);

/// Posted counts and sums of a draft that the tables hold as they did before, now that no row waits.
QMap<QString, QString> lost_counts(const Draft& draft, const MonthSheet& stored);

/// What is left of a draft once no row waits. A day that was posted is over then, unless the tables hold what was
/// beneath it: its rows were refused or the company was taken back to an earlier state, or else somebody made the day
/// again what it was. The person knows which, and is asked: it lies over itself, where something else stands now. Its
/// month's counts go with it.
Draft left_of(const Draft& draft, const MonthSheet& stored);

/// The day that is posted still, or beneath what is typed, once the draft is laid over the sheet. One that was typed
/// anew is marked: it lies over the posted one. Nothing where the sheet stands otherwise: somebody else saved the day,
/// or the person is to decide.
std::optional<PostedDay> posted_day(MonthSheet& sheet, const DraftDay& day);

/// What the tables may hold if the next posting of a day gets lost: what they may hold by now, and `last` if `next` is
/// another version.
QList<DayVersion> beneath_next(const PostedDay& last, const DayVersion& next);

} // namespace entry
