#pragma once

// Three versions of a day: as it was when the month was read, as it is typed, and as it is stored by now. What only one
// side changed stands as that side left it; what both changed is for the person to decide. A draft that is laid over a
// newly read month and a save that meets what others saved meanwhile are the same merge. Nothing here reads or writes.

#include "entry/draft.h"

namespace entry {

/// A day that both the typist and somebody else changed.
struct Clash {
    int row;
    DraftDay draft;
    TypedDay stored;
    Hours stored_hours{}; ///< if nothing but these was changed by somebody else
    friend bool operator==(const Clash&, const Clash&) = default;
};

/// The hours that stand if the typed day is taken: those typed, and where its times are the stored ones, so that
/// nothing is calculated, also those that lay beneath what somebody else typed over.
Hours typed_hours(const Clash& clash);

/// What belongs to the month's draft and doesn't follow from the cells.
struct BesideSheet {
    QList<Clash> clashes;          ///< not yet decided
    QMap<QString, QString> counts; ///< typed into the strip by hand, by their tag
};

struct Merge {
    QList<DraftDay> laid; ///< nobody else changed them
    QList<Clash> clashes; ///< somebody else did, and not to the same
};

/// Of the typed days, in order. Passed over, so that they stand as they are stored: days that stand as they are typed
/// already and have no hours typed over, those that were posted as they are typed and that somebody changed since, and
/// days of other months. A day that no month finds again under its key can't be compared and is laid.
/// `of_others` are figures that somebody else typed, by sheet row (hand_figures.h): such a day was changed by them.
Merge merge(const base::CompanyMonth& month, const QList<DraftDay>& typed, const MonthAsRead& stored,
    const DayKind& kind_without_work, const QMap<int, Hours>& of_others = {});

struct MonthInTables; // entry/month_load.h

/// A month before a person, with what it was.
struct MonthInHand {
    const MonthSheet& sheet;
    const MonthAsRead& read;
    const PostedDays& posted;
    const base::Sheet& figures;         ///< as they were read, or posted last
    const base::Sheet& strip;           ///< the counts, likewise
    QMap<QString, QString> counts;      ///< and sums that were typed by hand, by their tag, as in a draft
    MonthInTables* in_tables = nullptr; ///< what was read of the tables last, to be brought up to date; may be missing
};

struct MergedMonth {
    MonthSheet sheet;             ///< what is to be posted: marked are the days that aren't stored as they stand
    MonthSheet stored;            ///< as it is stored by now
    QList<int> taken_over;        ///< rows that stand as they are stored, where the sheet in hand had them otherwise
    QList<Clash> clashes;         ///< if there are any, the person is to be asked before anything is posted
    bool sums_taken_over = false; ///< of the month, or counts: somebody else typed over them
};

/// The month in hand over what is stored by now, which has the same columns. Where nobody else changed anything the
/// sheet is the one in hand. Where days came in its sums and counts are tallied anew, but for those that were typed by
/// hand; otherwise those that stand here as they were read stand as they are stored.
MergedMonth merge_months(const MonthInHand& hand, const MonthSheet& stored);

/// Sums and counts over the days as they stand, but for those typed by hand. A day still to be calculated stays
/// one.
void tally_anew(MonthSheet& sheet, const QMap<QString, QString>& counts);

/// Makes the sums and counts those that are stored, which has the same columns, if both have the same days. Tells
/// whether they have.
bool take_sums_of_same_days(MonthSheet& sheet, const MonthSheet& stored);

/// Makes the day stand in `to` as it does in `from`, its mark too.
void copy_day(MonthSheet& to, const MonthSheet& from, int r);

} // namespace entry
