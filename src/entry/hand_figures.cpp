#include "entry/hand_figures.h"

#include "base/literals.h"
#include "entry/cells.h"
#include "entry/merge.h"
#include "entry/tally.h"

#include <algorithm>

namespace entry {

using namespace base;

namespace {

bool is_figure(int column) {
    return column == col::work_time || column >= col::first_category;
}

BreakFrom break_as_it_stands(const MonthSheet& sheet, int r) {
    const minutes by_rules = day_figures(sheet, r, BreakFrom::Rules).breakTotal;
    return by_rules == minutes_of(sheet.hyou(r, col::break_time)) ? BreakFrom::Rules : BreakFrom::Cell;
}

/// What the row's cells would hold by themselves. A category without a band on the weekday keeps what was read.
QStringList calculated(const MonthSheet& sheet, int r, const base::Sheet& read) {
    const DayFigures day = day_figures(sheet, r, break_as_it_stands(sheet, r));
    QStringList cells;
    for (int column = 0; column < sheet.hyou.Cols(); ++column)
        cells << read(r, column);
    cells[col::work_time] = day.work_time;
    for (const BandFigure& band : day.bands)
        cells[band.column] = day.categories[band.column - col::first_category];
    return cells;
}

/// The row's figures that are neither `known` nor `own`.
Hours others(const Hours& known, const Hours& own, const MonthSheet& sheet, int r) {
    Hours figures;
    for (int column = col::work_time; column < sheet.hyou.Cols(); ++column) {
        const auto before = known.find(tag_of(sheet, column));
        if (before == known.end() || same_time(*before, sheet.hyou(r, column)))
            continue;
        if (const auto typed = own.find(before.key()); typed == own.end() || !same_time(*typed, sheet.hyou(r, column)))
            figures.insert(before.key(), sheet.hyou(r, column));
    }
    return figures;
}

/// What was typed over before the posting doesn't follow from the day either, if its rows get lost. Other times took
/// it away, but where they give nothing.
void add_posted_hours(Hours& hours, const PostedDay& posted, const MonthSheet& sheet, int r) {
    const bool has_its_times = same_times(typed_day(sheet, r), posted.typed);
    const Hours now = figures_of(sheet, sheet.hyou, r);
    for (const auto& [tag, time] : posted.hours.asKeyValueRange())
        if (const auto figure = now.find(tag); figure != now.end() && (has_its_times || same_time(*figure, time)))
            hours.insert(tag, *figure);
}

Hours others_over_typed(const DraftDay& day, const MonthSheet& stored, int r) {
    const TypedDay now = typed_day(stored, r);
    const bool as_typed = stored_alike(day.typed, now) && !stands_as_read(day.before, now, stored.kind_without_work);
    return as_typed ? others(day.hours, {}, stored, r) : others(day.figures, day.hours, stored, r);
}

/// Over what lay beneath it, and its own rows never came.
Hours others_over_posted(const DraftDay& day, const MonthSheet& stored, int r) {
    const TypedDay now = typed_day(stored, r);
    const auto lost =
        std::ranges::find_if(day.beneath, [&](const DayVersion& version) { return stored_alike(version.typed, now); });
    const bool none = stored_alike(day.typed, now) || lost == day.beneath.end() || is_among(day.beneath, stored, r);
    return none ? Hours() : others(lost->figures, {}, stored, r);
}

} // namespace

QString tag_of(const MonthSheet& sheet, int column) {
    if (column == col::break_time)
        return u"休憩"_s;
    return column == col::work_time ? u"勤務"_s : digits(category_of(sheet, column));
}

bool is_sum(int column) {
    return column == col::break_time || is_figure(column);
}

bool same_time(const QString& a, const QString& b) {
    return a == b || clock_of(a) == clock_of(b);
}

Hours figures_of(const MonthSheet& sheet, const base::Sheet& cells, int r) {
    Hours figures;
    if (cells.Cols() == sheet.hyou.Cols())
        for (int column = col::work_time; column < cells.Cols(); ++column)
            if (is_figure(column))
                figures.insert(tag_of(sheet, column), cells(r, column));
    return figures;
}

bool put_figures(const MonthSheet& sheet, base::Sheet& cells, int r, const Hours& figures) {
    bool any = false;
    for (int column = col::break_time; column < cells.Cols(); ++column)
        if (const auto figure = figures.find(tag_of(sheet, column)); figure != figures.end()) {
            cells(r, column) = *figure;
            any = true;
        }
    return any;
}

bool same_figures(const base::Sheet& a, const base::Sheet& b, int r) {
    if (a.Cols() == b.Cols())
        for (int column = col::work_time; column < a.Cols(); ++column)
            if (is_figure(column) && !same_time(a(r, column), b(r, column)))
                return false;
    return true;
}

bool same_figures(const Hours& known, const MonthSheet& sheet, int r) {
    return others(known, {}, sheet, r).isEmpty();
}

QMap<int, Hours> figures_of_others(const QList<DraftDay>& days, const MonthSheet& stored) {
    QMap<int, Hours> figures;
    for (const DraftDay& day : days) {
        const int r = stored.month.row(day.date);
        const Hours theirs = day.posted ? others_over_posted(day, stored, r) : others_over_typed(day, stored, r);
        if (!theirs.isEmpty())
            figures.insert(r, theirs);
    }
    return figures;
}

QStringList words_of(const Hours& hours, const MonthSheet& sheet) {
    QStringList words;
    for (int column = col::break_time; column < sheet.hyou.Cols(); ++column)
        if (const auto figure = hours.find(tag_of(sheet, column)); figure != hours.end())
            words << u"%1 %2"_s.arg(sheet.hyou(row::heading, column), figure->isEmpty() ? u"0:00"_s : *figure);
    return words;
}

Hours hours_by_hand(const MonthSheet& sheet, int r, const base::Sheet& read, const TypedDay& day) {
    if (Val(sheet.mark(r)) == 2 || read.Cols() != sheet.hyou.Cols())
        return {};
    const bool as_it_was = times_stored_alike(typed_day(sheet, r), day);
    const QStringList own = as_it_was ? QStringList() : calculated(sheet, r, read);
    Hours hours;
    for (int column = col::work_time; column < sheet.hyou.Cols(); ++column) {
        const QString& cell = sheet.hyou(r, column);
        if (is_figure(column) && (as_it_was ? !same_time(cell, read(r, column)) : cell != own[column]))
            hours.insert(tag_of(sheet, column), cell);
    }
    return hours;
}

std::optional<QString> shown_under(const QString& tag, const MonthSheet& sheet) {
    for (int column = col::break_time; column < sheet.hyou.Cols(); ++column)
        if (is_sum(column) && tag == sum_tag.toString() + tag_of(sheet, column))
            return sheet.hyou(row::total, column);
    for (int column = 0; column < sheet.hyou_day.Cols(); ++column)
        if (tag == sheet.hyou_day(strip::tag, column))
            return sheet.hyou_day(strip::count, column);
    return {};
}

bool same_under(const QString& tag, const QString& a, const QString& b) {
    return tag.startsWith(sum_tag) ? same_time(a, b) : count_of(a) == count_of(b);
}

void add_hours(QList<DraftDay>& days, const MonthSheet& sheet, const MonthAsRead& read, const PostedDays& posted,
    const base::Sheet& read_figures) {
    for (int r = row::first_day; r <= sheet.month.length(); ++r) {
        const auto as_posted = posted.find(r);
        const Hours hours =
            hours_by_hand(sheet, r, read_figures, as_posted == posted.end() ? read[r] : as_posted->typed);
        auto day = std::ranges::find(days, sheet.month.day(r), &DraftDay::date);
        if (day == days.end() && hours.isEmpty())
            continue;
        if (day == days.end())
            day = days.insert(
                day, DraftDay{sheet.month.day(r), read[r], typed_day(sheet, r), break_as_it_stands(sheet, r)});
        if (day->posted && !hours.isEmpty() && hours != posted.value(r).hours) {
            day->before = posted.value(r).typed;
            day->posted = false;
        }
        day->hours = day->posted ? posted.value(r).hours : hours;
        if (!day->posted && !day->pending && as_posted != posted.end())
            add_posted_hours(day->hours, *as_posted, sheet, r);
        day->figures = posted.contains(r) ? posted.value(r).figures : figures_of(sheet, read_figures, r);
    }
}

void lay_hours(MonthSheet& sheet, int r, const Hours& hours) {
    if (put_figures(sheet, sheet.hyou, r, hours))
        sheet.mark(r) = u"1"_s;
}

void lay_sums(MonthSheet& sheet, const Hours& sums) {
    Hours hours;
    for (const auto& [tag, text] : sums.asKeyValueRange())
        if (tag.startsWith(sum_tag))
            hours.insert(tag.sliced(sum_tag.size()), text);
    lay_hours(sheet, row::total, hours);
}

} // namespace entry
