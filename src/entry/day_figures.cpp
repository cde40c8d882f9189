#include "entry/day_figures.h"

#include "base/text.h"
#include "entry/cells.h"

#include <algorithm>

namespace entry {

using namespace base;

namespace {

Stay stay_of(const MonthSheet& sheet, int r) {
    const ClockNumber in = clock_of(sheet.hyou(r, col::clock_in));
    return {time_to_minutes(in), end_minutes(in, clock_of(sheet.hyou(r, col::clock_out)))};
}

minutes held_inside(const Band& band, minutes clock) {
    if (band.start <= clock && clock <= band.end)
        return clock;
    return band.end <= clock ? band.end : band.start;
}

/// A band that counts from inside counts only if the clock-in lies in it.
bool counts(const Band& band, const Stay& stay) {
    return !band.counts_from_inside || (stay.clockIn >= band.start && stay.clockIn <= band.end);
}

minutes length_in(const Band& band, const Stay& stay) {
    if (!counts(band, stay))
        return minutes(0);
    const minutes bandStart = held_inside(band, stay.clockIn);
    const minutes bandEnd = held_inside(band, stay.clockOut);
    return bandEnd - bandStart;
}

using Bands = std::array<Band, band_slots>;

/// What lies beyond the bands that come before, in order of their starts: bands may overlap.
minutes outside_of(const Bands& bands, const Stay& stay) {
    Bands by_start = bands;
    std::ranges::sort(by_start, {}, &Band::start);
    minutes outside = std::max(minutes(0), stay.length());
    minutes reached = stay.clockIn;
    for (const Band& band : by_start) {
        if (!counts(band, stay))
            continue;
        const minutes from = std::max(reached, band.start);
        const minutes until = std::min(stay.clockOut, band.end);
        outside -= std::max(minutes(0), until - from);
        reached = std::max(reached, until);
    }
    return outside;
}

QString work_time_text(minutes work) {
    const QString text = time_to_text(last_four(digits(minutes_to_time(work).value)));
    return text == u"0:00" ? QString() : text;
}

/// Works on the texts of the row as they would stand in its cells: a break rule reads a figure as it is shown.
class Figuring {
public:
    Figuring(const MonthSheet& sheet, int r) : m_sheet(sheet), m_bands(sheet.band_table[weekday_of(sheet, r)]) {
        m_day.stay = stay_of(sheet, r);
        m_day.break_time = sheet.hyou(r, col::break_time);
        for (int column = col::first_category; column < sheet.hyou.Cols(); ++column)
            m_day.categories << sheet.hyou(r, column);
    }

    DayFigures whole(BreakFrom break_from) && {
        cut_into_bands();
        m_day.outside = outside_of(m_bands, m_day.stay);
        m_day.breakTotal = break_from == BreakFrom::Cell ? minutes_of(m_day.break_time) : break_by_rules();
        m_day.workMinutes = m_day.stay.length() - m_day.breakTotal;
        m_day.work_time = work_time_text(m_day.workMinutes);
        return std::move(m_day);
    }

private:
    QString& cell(int column) { return m_day.categories[column - col::first_category]; }

    /// A category's figure is overwritten, not added to.
    void cut_into_bands() {
        for (int number = 0; number < band_slots; ++number)
            if (const auto column = category_column(m_sheet, m_bands[number].category)) {
                for (BandFigure& earlier : m_day.bands)
                    earlier.stands &= earlier.column != *column;
                const minutes inside = length_in(m_bands[number], m_day.stay);
                m_day.bands << BandFigure{.number = number, .column = *column, .inside = inside};
                cell(*column) = time_to_cell(minutes_to_time(inside));
            }
    }

    minutes break_by_rules() {
        minutes total(0);
        for (int column = col::first_category; column < m_sheet.hyou.Cols(); ++column)
            total += break_of_category(column, total);
        return total;
    }

    minutes break_of_category(int column, minutes before) {
        const minutes worked = minutes_of(cell(column));
        minutes sum(0);
        if (category_of(m_sheet, column) == 0 || worked == minutes(0))
            return sum;
        for (BandFigure& band : m_day.bands) {
            if (band.column != column)
                continue;
            ask_rules(band, worked);
            sum += band.pause;
            m_day.break_time = time_to_cell(minutes_to_time(before + sum));
        }
        return sum;
    }

    void ask_rules(BandFigure& band, minutes worked) {
        const auto& rules = m_bands[band.number].rules;
        for (int i = 0; i < int(rules.size()); ++i)
            if (rules[i].threshold > minutes(0) && rules[i].threshold <= worked) {
                band.rule = i;
                band.pause = rules[i].pause;
            }
        if (m_sheet.kyuflg == BreakHandling::Deducted)
            take_off(band);
    }

    /// The column follows the band's number, not its category; a figure brought to nothing reads "0:00".
    void take_off(BandFigure& band) {
        const int column = band.number + col::kind;
        if (column < col::first_category || column >= m_sheet.hyou.Cols())
            return;
        band.taken = column;
        cell(column) = time_to_text(minutes_to_time(minutes_of(cell(column)) - band.pause));
    }

    const MonthSheet& m_sheet;
    const Bands& m_bands;
    DayFigures m_day;
};

} // namespace

DayFigures day_figures(const MonthSheet& sheet, int r, BreakFrom break_from) {
    return Figuring(sheet, r).whole(break_from);
}

} // namespace entry
