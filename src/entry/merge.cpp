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

/// Whether the day is stored as it was when this PC read or posted it, or as it was before that: then what was posted
/// got lost.
bool only_ours(const MonthInHand& hand, int r, const MonthSheet& stored, const TypedDay& day) {
    const auto posted = hand.posted.find(r);
    if (posted == hand.posted.end())
        return stands_as_read(hand.read[r], day, hand.sheet.kind_without_work) &&
               same_figures(hand.figures, stored.hyou, r);
    return is_among({{posted->typed, posted->figures}}, stored, r) || is_among(posted->beneath, stored, r);
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

/// Sums and counts that somebody else typed over: those that don't follow from the days as they are stored. One that
/// stands here as it was read, and that nobody typed here, takes theirs.
class SumsOfOthers {
public:
    SumsOfOthers(MonthSheet& sheet, const MonthInHand& hand, const MonthSheet& stored)
        : m_sheet(sheet), m_hand(hand), m_stored(stored) {}

    /// Gives back whether there were any.
    bool take_over() {
        if (m_hand.figures.Cols() == m_sheet.hyou.Cols())
            for (int column = col::break_time; column < m_sheet.hyou.Cols(); ++column)
                if (is_sum(column))
                    take_over_sum(column);
        const int counts = std::min({m_sheet.hyou_day.Cols(), m_hand.strip.Cols(), m_stored.hyou_day.Cols()});
        for (int column = 0; column < counts; ++column)
            take_over_count(column);
        return m_any;
    }

private:
    void take_over_sum(int column) {
        QString& cell = m_sheet.hyou(row::total, column);
        const QString& theirs = m_stored.hyou(row::total, column);
        const bool ours = !same_time(cell, m_hand.figures(row::total, column)) ||
                          m_hand.counts.contains(sum_tag.toString() + tag_of(m_sheet, column));
        if (!ours && !same_time(cell, theirs) && !same_time(theirs, sum_of_days(m_stored, column)))
            take(cell, theirs);
    }

    void take_over_count(int column) {
        QString& cell = m_sheet.hyou_day(strip::count, column);
        const QString& theirs = m_stored.hyou_day(strip::count, column);
        const bool ours = count_of(cell) != count_of(m_hand.strip(strip::count, column)) ||
                          m_hand.counts.contains(m_sheet.hyou_day(strip::tag, column));
        if (!ours && count_of(cell) != count_of(theirs) &&
            count_of(theirs) != count_of(recount()(strip::count, column)))
            take(cell, theirs);
    }

    const base::Sheet& recount() {
        if (!m_recounted) {
            m_recounted = m_stored;
            tally_month(*m_recounted);
        }
        return m_recounted->hyou_day;
    }

    void take(QString& cell, const QString& theirs) {
        cell = theirs;
        m_any = true;
    }

    MonthSheet& m_sheet;
    const MonthInHand& m_hand;
    const MonthSheet& m_stored;
    std::optional<MonthSheet> m_recounted;
    bool m_any = false;
};

/// Where rows of this PC were lost on the way, the stored sums are older than those here.
bool take_over_sums(MergedMonth& merged, const MonthInHand& hand, const MonthAsRead& days) {
    for (const auto& [r, posted] : hand.posted.asKeyValueRange())
        if (!stored_alike(posted.typed, days[r]))
            return false;
    return SumsOfOthers(merged.sheet, hand, merged.stored).take_over();
}

/// A kind that came by itself is no difference, unless the person took it away.
bool stands_as_typed(const DraftDay& day, const TypedDay& stored, const DayKind& kind_without_work) {
    return takes_kind_away(day) ? stored_alike(day.typed, stored)
                                : stands_as_read(day.typed, stored, kind_without_work);
}

} // namespace

Hours typed_hours(const Clash& clash) {
    Hours hours = clash.draft.hours;
    if (same_times(clash.draft.typed, clash.stored))
        for (const QString& tag : clash.stored_hours.keys())
            if (!hours.contains(tag))
                hours.insert(tag, clash.draft.figures.value(tag));
    return hours;
}

Merge merge(const CompanyMonth& month, const QList<DraftDay>& typed, const MonthAsRead& stored,
    const DayKind& kind_without_work, const QMap<int, Hours>& of_others) {
    Merge merged;
    for (int r = row::first_day; r <= month.length(); ++r) {
        const auto day = std::ranges::find(typed, month.day(r), &DraftDay::date);
        const bool alike = day != typed.end() && stands_as_typed(*day, stored[r], kind_without_work);
        if (day == typed.end() || (alike && (day->hours.isEmpty() || day->posted)))
            continue;
        const auto is_stored = [&](const TypedDay& version) {
            return stands_as_read(version, stored[r], kind_without_work);
        };
        const bool stands =
            alike || is_stored(day->before) || std::ranges::any_of(day->beneath, is_stored, &DayVersion::typed);
        if (!month.is_found_again(r) || (stands && !of_others.contains(r)))
            merged.laid << *day;
        else if (!day->posted || stands)
            merged.clashes << Clash{r, *day, stored[r], stands ? of_others.value(r) : Hours()};
    }
    return merged;
}

MergedMonth merge_months(const MonthInHand& hand, const MonthSheet& stored) {
    const CompanyMonth& month = hand.sheet.month;
    const MonthAsRead days = month_as_read(stored);
    if (nobody_else_changed(hand, stored, days)) {
        MergedMonth merged{hand.sheet, stored, {}, {}};
        merged.sums_taken_over = take_over_sums(merged, hand, days);
        return merged;
    }
    QList<DraftDay> typed_days = draft_days(hand.sheet, hand.read, hand.posted);
    add_hours(typed_days, hand.sheet, hand.read, hand.posted, hand.figures);
    const Merge typed =
        merge(month, typed_days, days, hand.sheet.kind_without_work, figures_of_others(typed_days, stored));
    MergedMonth merged{hand.sheet, stored, {}, typed.clashes};
    const auto ours = [&](int r) { return is_marked(hand.sheet, r) && only_ours(hand, r, stored, days[r]); };
    merged.clashes.removeIf([&](const Clash& clash) { return ours(clash.row); });
    const auto stays = [&](int r) {
        return !month.is_found_again(r) || ours(r) ||
               std::ranges::find(typed.laid, month.day(r), &DraftDay::date) != typed.laid.end();
    };
    for (int r = row::first_day; r <= month.length(); ++r)
        if (!stays(r) && !same_cells(hand.sheet, stored, r)) {
            copy_day(merged.sheet, stored, r);
            merged.taken_over << r;
        }
    if (merged.taken_over.isEmpty())
        merged.sums_taken_over = take_over_sums(merged, hand, days);
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

bool take_sums_of_same_days(MonthSheet& sheet, const MonthSheet& stored) {
    for (int r = row::first_day; r <= sheet.month.length(); ++r)
        if (!stands_as_read(typed_day(sheet, r), typed_day(stored, r), sheet.kind_without_work) ||
            !same_figures(sheet.hyou, stored.hyou, r))
            return false;
    for (int column = col::break_time; column < sheet.hyou.Cols(); ++column)
        if (is_sum(column))
            sheet.hyou(row::total, column) = stored.hyou(row::total, column);
    sheet.hyou_day = stored.hyou_day;
    return true;
}

void copy_day(MonthSheet& to, const MonthSheet& from, int r) {
    for (int column = col::clock_in; column < to.hyou.Cols(); ++column)
        to.hyou(r, column) = from.hyou(r, column);
    for (int field = 0; field < to.hyou_system.Cols(); ++field)
        to.hyou_system(r, field) = from.hyou_system(r, field);
}

} // namespace entry
