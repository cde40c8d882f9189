#include "entry/posted_days.h"

#include "base/literals.h"
#include "entry/hand_figures.h"
#include "entry/merge.h"

#include <algorithm>

namespace entry {

using namespace base;

namespace {

bool has_arrived(const DayVersion& posted, const QList<DayVersion>& beneath, const MonthSheet& stored, int r) {
    return !stored.month.is_found_again(r) || is_among({posted}, stored, r) || !is_among(beneath, stored, r);
}

bool has_arrived(const DraftDay& day, const MonthSheet& stored) {
    const DayVersion posted{day.posted ? day.typed : day.before, day.figures};
    return has_arrived(posted, day.beneath, stored, stored.month.row(day.date));
}

DraftDay over_itself(DraftDay day) {
    day.before = day.typed;
    day.beneath.clear();
    day.posted = false;
    return day;
}

/// Hours that had no column when the day was posted wait still.
DraftDay over_what_arrived(const DraftDay& day, const MonthSheet& stored) {
    const int r = stored.month.row(day.date);
    DraftDay left{day.date, typed_day(stored, r), typed_day(stored, r)};
    left.figures = figures_of(stored, stored.hyou, r);
    for (const auto& [tag, time] : day.hours.asKeyValueRange())
        if (!day.figures.contains(tag))
            left.hours.insert(tag, time);
    return left;
}

/// Of a day whose rows got lost, or came.
DraftDay left_of(DraftDay day, const MonthSheet& stored, bool is_lost) {
    if (day.posted)
        return is_lost ? over_itself(day) : over_what_arrived(day, stored);
    if (!is_lost)
        day.beneath.clear();
    return day;
}

/// Those typed since stand.
void add_missing(QMap<QString, QString>& counts, QMap<QString, QString> posted) {
    posted.insert(counts);
    counts = std::move(posted);
}

} // namespace

bool was_posted(const DraftDay& day) {
    return day.posted || !day.beneath.isEmpty();
}

void know_what_lies_beneath(QList<DraftDay>& days) {
    for (DraftDay& day : days)
        if (day.posted && day.beneath.isEmpty())
            day.beneath << DayVersion{day.before};
}

bool arrived(const DraftDay& day, const MonthSheet& stored) {
    return day.posted && has_arrived(day, stored);
}

bool arrived(const PostedDay& day, const MonthSheet& stored, int r) {
    return has_arrived({day.typed, day.figures}, day.beneath, stored, r);
}

QMap<QString, QString> lost_counts(const Draft& draft, const MonthSheet& stored) {
    QMap<QString, QString> lost = draft.posted_counts;
    lost.removeIf([&](const auto& count) {
        const auto shown = shown_under(count.key(), stored);
        const QStringList beneath = draft.counts_beneath.value(count.key()).split(between_texts);
        const auto stands = [&](const QString& text) { return same_under(count.key(), *shown, text); };
        return !shown || stands(count.value()) || std::ranges::none_of(beneath, stands);
    });
    return lost;
}

Draft left_of(const Draft& draft, const MonthSheet& stored) {
    Draft left{draft.employee, {}, draft.counts, {}, {}, draft.undecided};
    bool any_lost = false;
    for (const DraftDay& day : draft.days) {
        const bool is_lost = was_posted(day) && !has_arrived(day, stored);
        any_lost = any_lost || is_lost;
        if (const DraftDay rest = left_of(day, stored, is_lost); is_lost || !day.posted || !rest.hours.isEmpty())
            left.days << rest;
    }
    add_missing(left.counts, any_lost ? draft.posted_counts : lost_counts(draft, stored));
    return left;
}

std::optional<PostedDay> posted_day(MonthSheet& sheet, const DraftDay& day) {
    const int r = sheet.month.row(day.date);
    const bool stands =
        day.posted ? is_among({{day.typed, day.figures}}, sheet, r) : stored_alike(day.typed, typed_day(sheet, r));
    if (!stands)
        return {};
    PostedDay posted{day.posted ? typed_day(sheet, r) : day.before, day.hours, day.figures, day.beneath};
    if (!day.posted) {
        for (auto figure = posted.hours.begin(); figure != posted.hours.end(); ++figure)
            *figure = day.figures.value(figure.key());
        sheet.mark(r) = u"1"_s;
    }
    return posted;
}

QList<DayVersion> beneath_next(const PostedDay& last, const DayVersion& next) {
    QList<DayVersion> versions = last.beneath;
    if (const DayVersion version{last.typed, last.figures}; version != next && !versions.contains(version))
        versions << version;
    return versions;
}

} // namespace entry
