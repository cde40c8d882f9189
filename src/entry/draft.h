#pragma once

// A draft: what was typed into a month and isn't in the tables yet, with what each day was beneath it when the month
// was read. It is a plain value. Laid over the month as the tables hold it later (after a crash, on coming back, or
// when another PC saved meanwhile), each day that nobody else changed gets the typed values, and the others are told
// side by side, so that the person decides.

#include "base/system_number.h"
#include "entry/day_figures.h"
#include "entry/typed_day.h"

#include <QDate>
#include <QMap>

namespace entry {

/// The days of a month as they were read, by sheet row; the rows past its end are blank days.
using MonthAsRead = std::array<TypedDay, row::total>;
MonthAsRead month_as_read(const MonthSheet& sheet);

/// Figures of a day by tag: "勤務" for the work time, a category's number for its hours.
using Hours = QMap<QString, QString>;

/// A day as the tables may hold it.
struct DayVersion {
    TypedDay typed;
    Hours figures{}; ///< all of the day's; empty where nobody knows them
    friend bool operator==(const DayVersion&, const DayVersion&) = default;
};

struct DraftDay {
    QDate date;
    TypedDay before; ///< as it was read; as it was posted, if it was typed anew since; as it is typed, if that got lost
    TypedDay typed;
    BreakFrom break_from = BreakFrom::Rules;
    bool pending = false; ///< typed and not yet calculated: its kind follows from the calculation
    bool posted = false;  ///< saved as it is typed, but not yet seen in the tables
    Hours hours{};        ///< that laying the day wouldn't give by itself
    Hours figures{}; ///< all of the day's, as they were read or posted last; empty where nobody knows them any more
    /// Of a day that was posted: what the tables hold as long as its rows aren't there. First what was read, then each
    /// that was posted since.
    QList<DayVersion> beneath{};
    friend bool operator==(const DraftDay&, const DraftDay&) = default;
};

/// Whether the person took away the kind that was read.
bool takes_kind_away(const DraftDay& day);

/// Between the texts of what may lie beneath a count or a sum.
constexpr QChar between_texts(u'\n');

struct Draft {
    base::EmployeeKey employee;
    QList<DraftDay> days; ///< in order
    /// Counts typed into the strip by hand, by their tag, and sums typed over in the total row, by sum_tag and the tag
    /// of the hours.
    QMap<QString, QString> counts;
    QMap<QString, QString> posted_counts{};  ///< the same, posted together with the days that are
    QMap<QString, QString> counts_beneath{}; ///< of these, what the tables may hold still, by between_texts
    QList<DraftDay> undecided{}; ///< of `days`, as they lay before others' when they were typed anew and not decided

    bool isEmpty() const { return days.isEmpty() && counts.isEmpty() && posted_counts.isEmpty(); }
    int unsaved_days() const; ///< of its days, those that weren't posted as they are typed
    friend bool operator==(const Draft&, const Draft&) = default;
};

struct PostedDay {
    TypedDay typed;
    Hours hours{};               ///< as in a draft
    Hours figures{};             ///< all of the day's
    QList<DayVersion> beneath{}; ///< as in a draft
};

/// Days as they were posted since the month was read, by sheet row.
using PostedDays = QMap<int, PostedDay>;

/// The days of the sheet that differ from what was read, but for those that only got their standard kind by
/// themselves. A day that stands as it was posted is told as posted. One that was changed again lies over what was
/// posted: it is a draft even where it stands as it was read.
QList<DraftDay> draft_days(const MonthSheet& sheet, const MonthAsRead& read, const PostedDays& posted);

struct Clash; // entry/merge.h

/// Lays the draft over the newly read month (see merge.h): days that nobody else changed get the typed values, are
/// calculated and marked; those that are stored as typed get the hours typed over. Posted days get the figures that
/// they were posted with, unless the tables hold them, or something of somebody else. Then the counts and
/// sums typed by hand. Gives back the days that are to be decided; they stay as they were read. `coming` is the month
/// as it will be once the rows are in that wait, if any do.
QList<Clash> lay_draft(MonthSheet& sheet, const Draft& draft, const MonthSheet* coming = nullptr);

/// Writes the counts typed by hand into the strip.
void lay_counts(base::Sheet& hyou_day, const QMap<QString, QString>& counts);

/// Writes the typed values into a day and marks it changed; a day whose times aren't the same is calculated, but for
/// one that was posted, or whose hours alone were typed: it has its figures, whatever the rules have become. Then the
/// month is tallied, or its kinds are counted where only the kind differs.
void lay_day(MonthSheet& sheet, int r, const DraftDay& day);

/// The same over a day that somebody else changed and that stands in the sheet: it has the figures that it had where it
/// was typed.
void lay_instead(MonthSheet& sheet, int r, const DraftDay& day);

/// Whether the row of the sheet, as it was read, is one of the versions.
bool is_among(const QList<DayVersion>& versions, const MonthSheet& stored, int r);

} // namespace entry
