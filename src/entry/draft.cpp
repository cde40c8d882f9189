#include "entry/draft.h"

#include "base/literals.h"
#include "base/text.h"
#include "entry/calculation.h"
#include "entry/cells.h"
#include "entry/hand_figures.h"
#include "entry/merge.h"
#include "entry/tally.h"

#include <algorithm>
#include <ranges>

namespace entry {

using namespace base;

namespace {

/// The break that was read stays where no rule gives one.
bool has_break_by_hand(const MonthSheet& sheet, int r, const TypedDay& read) {
    const QString& pause = sheet.hyou(r, col::break_time);
    if (Val(sheet.mark(r)) == 2)
        return pause != read.break_time;
    const minutes by_rules = day_figures(sheet, r, BreakFrom::Rules).breakTotal;
    const bool erased = by_rules == minutes(0) && minutes_of(read.break_time) != by_rules;
    return minutes_of(pause) != by_rules || erased;
}

BreakFrom break_from(const MonthSheet& sheet, int r, const TypedDay& read) {
    return has_break_by_hand(sheet, r, read) ? BreakFrom::Cell : BreakFrom::Rules;
}

void write_kind(MonthSheet& sheet, int r, const TypedDay& typed) {
    sheet.hyou_system(r, record::kind_number) = typed.kind_number;
    sheet.hyou_system(r, record::kind_name) = typed.kind_name;
    sheet.hyou_system(r, record::holiday_work) = typed.holiday_work;
    sheet.hyou(r, col::kind) = typed.kind_name;
}

void write_times(MonthSheet& sheet, int r, const TypedDay& typed, const QString& break_time) {
    sheet.hyou(r, col::clock_in) = typed.clock_in;
    sheet.hyou(r, col::clock_out) = typed.clock_out;
    sheet.hyou(r, col::break_time) = break_time;
    sheet.hyou(r, col::remark) = typed.remark;
}

/// As the month is tallied where it is typed.
void tally_laid(MonthSheet& sheet, int r, const TypedDay& before) {
    const TypedDay now = typed_day(sheet, r);
    sheet.mark(r) = u"1"_s;
    if (!same_times(before, now))
        tally_month(sheet);
    else if (!same_kind(before, now))
        休暇出勤日計算処理(sheet, 0);
}

/// Whether the tables still hold what lay beneath a posted day.
bool lies_over(const DraftDay& day, const MonthSheet& stored, int r) {
    return !stored.month.is_found_again(r) || is_among(day.beneath, stored, r) ||
           (day.beneath.isEmpty() && stands_as_read(day.before, typed_day(stored, r), stored.kind_without_work));
}

/// Whether nobody chose one, neither here nor where the day that stands in the sheet was saved.
bool has_standard_kind(const MonthSheet& sheet, const DraftDay& day, const TypedDay& stored) {
    return Val(day.typed.kind_number) == 0 && !takes_kind_away(day) &&
           !has_chosen_kind(stored, sheet.kind_without_work);
}

/// With the figures that it has, whatever the rules of the work type have become.
void lay_as_it_was(MonthSheet& sheet, int r, const DraftDay& day) {
    const TypedDay before = typed_day(sheet, r);
    write_times(sheet, r, day.typed, day.typed.break_time);
    if (day.posted || !has_standard_kind(sheet, day, before))
        write_kind(sheet, r, day.typed);
    put_figures(sheet, sheet.hyou, r, day.figures);
    if (!day.posted)
        lay_hours(sheet, r, day.hours);
    tally_laid(sheet, r, before);
}

void lay_typed(MonthSheet& sheet, int r, const DraftDay& day, bool calculates) {
    const TypedDay before = typed_day(sheet, r);
    const bool by_hand = day.break_from == BreakFrom::Cell;
    // Where no rule gives a break, what stood in the cell stays.
    write_times(sheet, r, day.typed, calculates && !by_hand ? day.before.break_time : day.typed.break_time);
    const bool kind_is_to_follow = calculates && day.pending;
    if (kind_is_to_follow || (!calculates && !has_standard_kind(sheet, day, before)))
        write_kind(sheet, r, day.typed);
    if (calculates)
        calculate_day(sheet, r, by_hand ? col::break_time : col::clock_out);
    if (calculates && !kind_is_to_follow)
        write_kind(sheet, r, day.typed);
    lay_hours(sheet, r, day.hours);
    tally_laid(sheet, r, before);
}

/// A day that was changed again behind a posting lies over whatever of this person the tables hold, and one that was
/// typed over rows that wait over what the tables hold without them.
DraftDay over_what_is_stored(DraftDay day, const MonthSheet& stored, const MonthSheet* coming) {
    const int r = stored.month.row(day.date);
    if (is_among(day.beneath, stored, r) || (coming && is_among({{day.before, day.figures}}, *coming, r))) {
        if (same_times(day.typed, day.before)) // then its figures stand, whatever the times here would give
            for (const auto& [tag, time] : day.figures.asKeyValueRange())
                day.hours.insert(tag, day.hours.value(tag, time));
        day.before = typed_day(stored, r);
        day.figures = figures_of(stored, stored.hyou, r);
    }
    return day;
}

} // namespace

bool is_among(const QList<DayVersion>& versions, const MonthSheet& stored, int r) {
    const TypedDay now = typed_day(stored, r);
    return std::ranges::any_of(versions, [&](const DayVersion& version) {
        return stands_as_read(version.typed, now, stored.kind_without_work) && same_figures(version.figures, stored, r);
    });
}

bool takes_kind_away(const DraftDay& day) {
    return Val(day.typed.kind_number) == 0 && Val(day.before.kind_number) != 0;
}

MonthAsRead month_as_read(const MonthSheet& sheet) {
    MonthAsRead days;
    for (int r = row::first_day; r <= row::last_day; ++r)
        days[r] = typed_day(sheet, r);
    return days;
}

int Draft::unsaved_days() const {
    return static_cast<int>(std::ranges::count(days, false, &DraftDay::posted));
}

QList<DraftDay> draft_days(const MonthSheet& sheet, const MonthAsRead& read, const PostedDays& posted) {
    QList<DraftDay> days;
    for (int r = row::first_day; r <= sheet.month.length(); ++r) {
        const TypedDay now = typed_day(sheet, r);
        const auto as_posted = posted.find(r);
        const bool stands_as_posted =
            as_posted != posted.end() && nobody_typed(as_posted->typed, now, sheet.kind_without_work);
        const TypedDay& before = as_posted == posted.end() || stands_as_posted ? read[r] : as_posted->typed;
        if (stands_as_posted || !nobody_typed(before, now, sheet.kind_without_work)) {
            days << DraftDay{sheet.month.day(r), before, now, break_from(sheet, r, before), Val(sheet.mark(r)) == 2,
                stands_as_posted};
            if (as_posted != posted.end())
                days.last().beneath = as_posted->beneath;
        }
    }
    return days;
}

QList<Clash> lay_draft(MonthSheet& sheet, const Draft& draft, const MonthSheet* coming) {
    const MonthSheet stored = sheet; // the first day laid stamps the others
    QList<DraftDay> unsaved;
    for (const DraftDay& day : draft.days)
        if (!day.posted)
            unsaved << over_what_is_stored(day, stored, coming);
        else if (const int r = sheet.month.row(day.date); lies_over(day, stored, r))
            lay_day(sheet, r, day);
    const Merge merged =
        merge(sheet.month, unsaved, month_as_read(stored), sheet.kind_without_work, figures_of_others(unsaved, stored));
    const auto other_times = [&](int r) { return !same_times(typed_day(stored, r), typed_day(sheet, r)); };
    for (const DraftDay& day : merged.laid)
        if (const int r = sheet.month.row(day.date); stored_alike(day.typed, typed_day(stored, r)))
            lay_hours(sheet, r, day.hours);
        else
            lay_day(sheet, r, day);
    if (std::ranges::any_of(std::views::iota(row::first_day, row::last_day + 1), other_times))
        tally_month(sheet); // with all hours
    for (const auto& counts : {draft.posted_counts, draft.counts}) {
        lay_counts(sheet.hyou_day, counts);
        lay_sums(sheet, counts);
    }
    return merged.clashes;
}

void lay_counts(base::Sheet& hyou_day, const QMap<QString, QString>& counts) {
    for (int column = 0; column < hyou_day.Cols(); ++column)
        if (const auto typed = counts.find(hyou_day(strip::tag, column)); typed != counts.end())
            hyou_day(strip::count, column) = *typed;
}

void lay_day(MonthSheet& sheet, int r, const DraftDay& day) {
    if (!day.figures.isEmpty() && (day.posted || day.typed == day.before))
        return lay_as_it_was(sheet, r, day);
    lay_typed(sheet, r, day, !same_times(typed_day(sheet, r), day.typed));
}

void lay_instead(MonthSheet& sheet, int r, const DraftDay& day) {
    const bool has_times_as_read = same_times(day.typed, day.before);
    if (has_times_as_read && !day.figures.isEmpty())
        return lay_as_it_was(sheet, r, day);
    put_figures(sheet, sheet.hyou, r, day.figures);
    lay_typed(sheet, r, day, !has_times_as_read || !same_times(typed_day(sheet, r), day.typed));
}

} // namespace entry
