#include "entry/fill.h"

#include "base/literals.h"

#include "entry/calculation.h"
#include "entry/cells.h"
#include "entry/draft.h"
#include "entry/editing.h"

#include <algorithm>

namespace entry {

using namespace base;

namespace {

constexpr int monday = 1;
constexpr minutes whole_day = std::chrono::hours(24);

struct ClockTimes {
    QString clock_in;
    QString clock_out;
};

using Bands = std::array<Band, band_slots>;

bool is_used(const Band& band) {
    return band.start != band.end;
}

bool has_bands(const Bands& bands) {
    return std::ranges::any_of(bands, is_used);
}

const Bands& bands_of(const MonthSheet& sheet, int r) {
    return sheet.band_table[weekday_of(sheet, r)];
}

QString clock_text(minutes time) {
    return time_to_text(minutes_to_time(time % whole_day));
}

bool has_band(const Bands& bands, int number) {
    return number >= 1 && number < band_slots && is_used(bands[number]);
}

/// Nothing where the day would be longer than two clock times can tell.
std::optional<ClockTimes> standard_times(const Bands& bands, NormalDay normal) {
    if (!has_band(bands, normal.last) || (normal.first != 0 && !has_band(bands, normal.first)))
        return std::nullopt;
    const minutes start = normal.first == 0 ? std::ranges::find_if(bands, is_used)->start : bands[normal.first].start;
    const minutes end = bands[normal.last].end;
    if (end <= start || end - start >= whole_day)
        return std::nullopt;
    return ClockTimes{clock_text(start), clock_text(end)};
}

std::optional<ClockTimes> times_of(const MonthSheet& sheet, int r) {
    if (!is_day(sheet, r) || sheet.hyou(r, col::clock_in).isEmpty() || sheet.hyou(r, col::clock_out).isEmpty())
        return std::nullopt;
    return ClockTimes{sheet.hyou(r, col::clock_in), sheet.hyou(r, col::clock_out)};
}

std::optional<ClockTimes> times_above(const MonthSheet& sheet, int r) {
    for (int above = r - 1; above >= row::first_day; --above)
        if (const auto times = times_of(sheet, above))
            return times;
    return std::nullopt;
}

std::optional<ClockTimes> times_for(const MonthSheet& sheet, int r, FillSource source, NormalDay normal) {
    switch (source) {
    case FillSource::StandardTimes:
        return standard_times(bands_of(sheet, r), normal);
    case FillSource::DayAbove:
        return times_above(sheet, r);
    case FillSource::SameWeekdayLastWeek:
        return r > weekday_count ? times_of(sheet, r - weekday_count) : std::nullopt;
    }
    return std::nullopt;
}

bool is_blank(const MonthSheet& sheet, int r) {
    for (int column = col::clock_in; column < sheet.hyou.Cols(); ++column)
        if (column != col::remark && column != col::kind && !sheet.hyou(r, column).isEmpty())
            return false;
    return !has_chosen_kind(typed_day(sheet, r), sheet.kind_without_work);
}

void fill_day(MonthSheet& sheet, int r, const ClockTimes& times) {
    sheet.hyou(r, col::clock_in) = times.clock_in;
    sheet.hyou(r, col::clock_out) = times.clock_out;
    calculate_day(sheet, r, col::clock_out);
    sheet.mark(r) = u"1"_s;
}

QString choice_text(int number, const Band& band) {
    return u"%1 %2 %3～%4"_s.arg(
        digits(number), band.name, clock_text(band.start), time_to_text(minutes_to_time(band.end)));
}

} // namespace

QList<BandChoice> band_choices(const MonthSheet& sheet) {
    QList<BandChoice> choices;
    for (int number = 1; number < band_slots; ++number)
        for (int i = 0; i < weekday_count; ++i) {
            const Band& band = sheet.band_table[(monday + i) % weekday_count][number];
            if (!is_used(band))
                continue;
            choices << BandChoice{number, choice_text(number, band)};
            break;
        }
    return choices;
}

NormalDay proposed_day(const MonthSheet& sheet) {
    NormalDay longest;
    minutes length(0);
    for (int number = 1; number < band_slots; ++number)
        for (int i = 0; i < weekday_count; ++i) {
            const Band& band = sheet.band_table[(monday + i) % weekday_count][number];
            if (!is_used(band))
                continue;
            if (band.end - band.start > length) {
                length = band.end - band.start;
                longest = {number, number};
            }
            break;
        }
    return longest;
}

int fill(MonthSheet& sheet, FillSource source, NormalDay normal, std::optional<RowRange> rows, Weekdays weekdays) {
    calculate_pending_days(sheet);
    const RowRange range = rows.value_or(RowRange{row::first_day, row::last_day});
    const auto is_wanted = [&](int r) {
        return rows || (weekdays.test(size_t(weekday_of(sheet, r))) && has_bands(bands_of(sheet, r)));
    };
    int filled = 0;
    for (int r = std::max(range.first, row::first_day); r <= std::min(range.last, row::last_day); ++r) {
        if (!is_day(sheet, r) || !is_blank(sheet, r) || !is_wanted(r))
            continue;
        if (const auto times = times_for(sheet, r, source, normal)) {
            fill_day(sheet, r, *times);
            ++filled;
        }
    }
    return filled;
}

} // namespace entry
