#pragma once

// Figures that were typed over by hand: hours that the calculation gives, and sums of the month. Nothing else in the
// sheet tells them from those that follow from the clock times, so they are found by comparison: a figure that neither
// was read so nor follows from the day as it stands was typed, or stands from a calculation that wouldn't give it
// any more. Either way it is what the person sees, and is kept.

#include "entry/draft.h"

#include <QStringList>

namespace entry {

/// "休憩", "勤務" or the number of the column's category.
QString tag_of(const MonthSheet& sheet, int column);

/// Whether the column holds times that the total row adds up.
bool is_sum(int column);

/// Whether two cells hold the same time: a stored 0 reads back as nothing.
bool same_time(const QString& a, const QString& b);

/// All figures of a row, by tag. The columns are those of `sheet`; `cells` has as many, else there are none.
Hours figures_of(const MonthSheet& sheet, const base::Sheet& cells, int r);

/// Writes figures into their cells of the row, and tells whether there are any; tags that have no column are passed
/// over.
bool put_figures(const MonthSheet& sheet, base::Sheet& cells, int r, const Hours& figures);

/// Whether a row's figures are the same times. Sheets of other columns aren't compared.
bool same_figures(const base::Sheet& a, const base::Sheet& b, int r);
bool same_figures(const Hours& known, const MonthSheet& sheet, int r);

/// Of the draft's days, by sheet row, the figures that are stored now and are neither those that lay beneath the draft
/// nor those that were typed over them here: somebody else typed them. Where the day itself stands as it is typed here,
/// its figures follow from that, and only those typed over here are compared.
QMap<int, Hours> figures_of_others(const QList<DraftDay>& days, const MonthSheet& stored);

/// "勤務 7:00", with the names of the sheet's columns.
QStringList words_of(const Hours& hours, const MonthSheet& sheet);

/// Of a day, by tag. A day that is still to be calculated has none: the calculation overwrites them.
/// `read` is the sheet as it was read, or as it was posted last, and so is `day`. They are those that laying the day
/// over these wouldn't give: where its times stand as they were a figure that differs, else one that the calculation
/// doesn't give.
Hours hours_by_hand(const MonthSheet& sheet, int r, const base::Sheet& read, const TypedDay& day);

/// What the tag of a sum of the month begins with, among counts.
inline constexpr QStringView sum_tag = u"合計 ";

/// What the month shows under the tag of a count or a sum; nothing where it has no such column.
std::optional<QString> shown_under(const QString& tag, const MonthSheet& sheet);

/// Whether two texts under a tag are the same count, or sum.
bool same_under(const QString& tag, const QString& a, const QString& b);

/// Adds the hours typed by hand to the days of a draft, and to each what its figures were; a day that has nothing else
/// joins them, over what it was in the tables or as it was posted.
void add_hours(QList<DraftDay>& days, const MonthSheet& sheet, const MonthAsRead& read, const PostedDays& posted,
    const base::Sheet& read_figures);

/// Write hours into their cells and mark the row changed; tags that have no column now are passed over.
void lay_hours(MonthSheet& sheet, int r, const Hours& hours);
void lay_sums(MonthSheet& sheet, const Hours& sums);

} // namespace entry
