#include "entry/merge.h"

#include "base/literals.h"
#include "base/text.h"
#include "entry/cells.h"
#include "entry/hand_figures.h"
#include "entry/tally.h"

#include <algorithm>

namespace entry {

using namespace base;

namespace {

bool same_cells(const MonthSheet& a, const MonthSheet& b, int r) {
    for (int column = col::clock_in; column < a.hyou.Cols(); ++column)
        if (a.hyou(r, column) != b.hyou(r, column))
            return false;
    const auto same = [&](int field) { return a.hyou_system(r, field) == b.hyou_system(r, field); };
    return same(record::kind_number) && same(record::kind_name) && same(record::holiday_work);
}

/// Whether the day is stored as it was when this PC read or posted it. What lay beneath a posted day is remembered
/// without its figures.
bool only_ours(const MonthInHand& hand, int r, const MonthSheet& stored, const TypedDay& day) {
    const auto posted = hand.posted.find(r);
    if (posted != hand.posted.end() && stored_alike(posted->typed, day))
        return same_figures(posted->figures, stored, r);
    return stands_as_read(hand.read[r], day, hand.sheet.kind_without_work) &&
           (posted != hand.posted.end() || same_figures(hand.figures, stored.hyou, r));
}

bool is_marked(const MonthSheet& sheet, int r) {
    return !Trim(sheet.mark(r)).isEmpty();
}

/// Most saves meet nothing new, and take no more work than that.
bool nobody_else_changed(const MonthInHand& hand, const MonthSheet& stored, const MonthAsRead& days) {
    const CompanyMonth& month = hand.sheet.month;
    for (int r = row::first_day; r <= month.length(); ++r)
        if (month.is_found_again(r) &&
            !(is_marked(hand.sheet, r) ? only_ours(hand, r, stored, days[r]) : same_cells(hand.sheet, stored, r)))
            return false;
    return true;
}

bool take_over_sums(MonthSheet& sheet, const MonthInHand& hand, const MonthSheet& stored) {
    bool any = false;
    const auto take_over = [&any](QString& cell, const QString& theirs) {
        cell = theirs;
        any = true;
    };
    const bool comparable = hand.figures.Cols() == sheet.hyou.Cols();
    for (int column = col::break_time; comparable && column < sheet.hyou.Cols(); ++column) {
        QString& cell = sheet.hyou(row::total, column);
        const QString& theirs = stored.hyou(row::total, column);
        if (is_sum(column) && same_time(cell, hand.figures(row::total, column)) && !same_time(cell, theirs))
            take_over(cell, theirs);
    }
    const int counts = std::min({sheet.hyou_day.Cols(), hand.strip.Cols(), stored.hyou_day.Cols()});
    for (int column = 0; column < counts; ++column) {
        QString& cell = sheet.hyou_day(strip::count, column);
        const QString& theirs = stored.hyou_day(strip::count, column);
        if (count_of(cell) == count_of(hand.strip(strip::count, column)) && count_of(cell) != count_of(theirs))
            take_over(cell, theirs);
    }
    return any;
}

} // namespace

bool stands_as_read(const TypedDay& read, const TypedDay& stored, const DayKind& kind_without_work) {
    return read == stored || stored_alike(read, stored) || only_stamped(kind_without_work, read, stored);
}

Merge merge(const CompanyMonth& month, const QList<DraftDay>& typed, const MonthAsRead& stored,
    const DayKind& kind_without_work, const QMap<int, Hours>& of_others) {
    Merge merged;
    for (int r = row::first_day; r <= month.length(); ++r) {
        const auto day = std::ranges::find(typed, month.day(r), &DraftDay::date);
        const bool alike = day != typed.end() && stored_alike(day->typed, stored[r]);
        if (day == typed.end() || (alike && (day->hours.isEmpty() || day->posted)))
            continue;
        const bool stands = alike || stands_as_read(day->before, stored[r], kind_without_work);
        if (!month.is_found_again(r) || (stands && !of_others.contains(r)))
            merged.laid << *day;
        else if (!day->posted)
            merged.clashes << Clash{r, *day, stored[r], stands ? of_others.value(r) : Hours()};
    }
    return merged;
}

MergedMonth merge_months(const MonthInHand& hand, const MonthSheet& stored) {
    const CompanyMonth& month = hand.sheet.month;
    const MonthAsRead days = month_as_read(stored);
    if (nobody_else_changed(hand, stored, days)) {
        MergedMonth merged{hand.sheet, stored, {}, {}};
        merged.sums_taken_over = take_over_sums(merged.sheet, hand, stored);
        return merged;
    }
    QList<DraftDay> typed_days = draft_days(hand.sheet, hand.read, hand.posted);
    add_hours(typed_days, hand.sheet, hand.read, hand.posted, hand.figures);
    const Merge typed =
        merge(month, typed_days, days, hand.sheet.kind_without_work, figures_of_others(typed_days, stored));
    MergedMonth merged{hand.sheet, stored, {}, typed.clashes};
    const auto stays = [&](int r) {
        return !month.is_found_again(r) || (is_marked(hand.sheet, r) && only_ours(hand, r, stored, days[r])) ||
               std::ranges::find(typed.laid, month.day(r), &DraftDay::date) != typed.laid.end();
    };
    for (int r = row::first_day; r <= month.length(); ++r)
        if (!stays(r) && !same_cells(hand.sheet, stored, r)) {
            copy_day(merged.sheet, stored, r);
            merged.taken_over << r;
        }
    if (merged.taken_over.isEmpty())
        merged.sums_taken_over = take_over_sums(merged.sheet, hand, stored);
    else
        tally_anew(merged.sheet, hand.counts);
    return merged;
}

void tally_anew(MonthSheet& sheet, const QMap<QString, QString>& counts) {
    QList<int> to_be_calculated;
    for (int r = row::first_day; r <= row::last_day; ++r)
        if (Val(sheet.mark(r)) == 2)
            to_be_calculated << r;
    tally_month(sheet);
    for (const int r : to_be_calculated)
        sheet.mark(r) = u"2"_s;
    lay_counts(sheet.hyou_day, counts);
    lay_sums(sheet, counts);
}

void copy_day(MonthSheet& to, const MonthSheet& from, int r) {
    for (int column = col::clock_in; column < to.hyou.Cols(); ++column)
        to.hyou(r, column) = from.hyou(r, column);
    for (int field = 0; field < to.hyou_system.Cols(); ++field)
        to.hyou_system(r, field) = from.hyou_system(r, field);
}

} // namespace entry
