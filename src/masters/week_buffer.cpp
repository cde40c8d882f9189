#include "masters/week_buffer.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "base/time.h"

#include <algorithm>

namespace masters {

using namespace base;

namespace {

bool is_band_time(int col) {
    return col == band_col::start || col == band_col::end;
}

bool is_rule(int col) {
    return col >= band_col::first_rule;
}

QString shown(int col, const QString& slot) {
    if (!is_band_time(col) && !is_rule(col))
        return Trim(slot);
    const QString text = time_to_text(slot);
    return is_rule(col) && text == u"0:00" ? QString() : text;
}

} // namespace

void WeekBuffer::take_day(const Sheet& hyou, int weekday) {
    for (int band = 1; band <= band_count; ++band)
        for (int col = band_col::start; col < band_col::count; ++col) {
            const QString& cell = hyou(band, col);
            (*this)(weekday, band, col) = is_band_time(col) || is_rule(col) ? text_to_time(cell) : Trim(cell);
        }
}

void WeekBuffer::take_day_set(const Sheet& hyou, int first, int last) {
    for (int weekday = first; weekday <= last; ++weekday)
        for (int band = 1; band <= band_count; ++band)
            for (int col = band_col::start; col < band_col::count; ++col) {
                const QString& cell = hyou(band, col);
                (*this)(weekday, band, col) = is_band_time(col) ? text_to_time(cell) : Trim(cell);
            }
}

void WeekBuffer::show_band(Sheet& hyou, int weekday, int band) const {
    for (int col = band_col::start; col < band_col::count; ++col)
        hyou(band, col) = shown(col, (*this)(weekday, band, col));
}

bool WeekBuffer::is_shown(const Sheet& hyou, int weekday) const {
    Sheet grid = hyou;
    show_day(grid, weekday);
    for (int band = 1; band <= band_count; ++band)
        for (int col = band_col::start; col < band_col::count; ++col)
            if (grid(band, col) != hyou(band, col))
                return false;
    return true;
}

bool WeekBuffer::is_blank(int weekday, int band) const {
    return std::ranges::all_of(m_slots[weekday][band - 1], [](const QString& slot) { return slot.isEmpty(); });
}

QString WeekBuffer::rule_cut_short(int weekday) const {
    for (const Band& band : m_slots[weekday])
        for (int col = band_col::first_rule; col <= band_col::last_rule; ++col)
            if (Val(band[col]) != Val(text_to_time(band[col])))
                return band[col];
    return {};
}

void WeekBuffer::make_rules_numbers() {
    for (auto& day : m_slots)
        for (Band& band : day)
            for (int col = band_col::first_rule; col <= band_col::last_rule; ++col)
                band[col] = text_to_time(band[col]);
}

void WeekBuffer::show_day(Sheet& hyou, int weekday) const {
    for (int band = 1; band <= band_count; ++band)
        show_band(hyou, weekday, band);
}

} // namespace masters
