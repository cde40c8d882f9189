#include "entry/calculation.h"

#include "base/text.h"
#include "entry/cells.h"
#include "entry/tally.h"

namespace entry {

namespace {

struct Stay {
    minutes clockIn;
    minutes clockOut;
};

bool starts_calculation(int column) {
    return column >= col::clock_in && column <= col::break_time;
}

void blank_impossible_clock(QString& cell) {
    const QString four = last_four(text_to_time(cell));
    const qint64 hours = Val(QStringView(four).first(2));
    const qint64 past_hour = Val(QStringView(four).last(2));
    if (hours < 0 || hours >= 24 || past_hour < 0 || past_hour >= 60)
        cell.clear();
}

void check_clock_cells(MonthSheet& sheet, int r) {
    if (sheet.entry_cell.col == col::break_time)
        return;
    blank_impossible_clock(sheet.hyou(r, col::clock_in));
    blank_impossible_clock(sheet.hyou(r, col::clock_out));
}

/// A day without clock times keeps no break of the times that it had; one that is typed by hand stands.
void blank_break_without_clock(MonthSheet& sheet, int r) {
    const bool no_clock = sheet.hyou(r, col::clock_in).isEmpty() && sheet.hyou(r, col::clock_out).isEmpty();
    if (no_clock && sheet.entry_cell.col != col::break_time)
        sheet.hyou(r, col::break_time).clear();
}

Stay stay_of(const MonthSheet& sheet, int r) {
    const ClockNumber in = clock_of(sheet.hyou(r, col::clock_in));
    return {time_to_minutes(in), end_minutes(in, clock_of(sheet.hyou(r, col::clock_out)))};
}

minutes held_inside(const Band& band, minutes clock) {
    if (band.start <= clock && clock <= band.end)
        return clock;
    return band.end <= clock ? band.end : band.start;
}

minutes length_in(const Band& band, const Stay& stay) {
    if (band.counts_from_inside && (stay.clockIn < band.start || stay.clockIn > band.end))
        return minutes(0);
    const minutes bandStart = held_inside(band, stay.clockIn);
    const minutes bandEnd = held_inside(band, stay.clockOut);
    return bandEnd - bandStart;
}

void cut_into_bands(MonthSheet& sheet, int r, const Stay& stay) {
    for (const Band& band : sheet.band_table[weekday_of(sheet, r)])
        if (const auto column = category_column(sheet, band.category))
            sheet.hyou(r, *column) = time_to_cell(minutes_to_time(length_in(band, stay)));
}

minutes pause_of(const Band& band, minutes worked) {
    minutes pause(0);
    for (const BreakRule& rule : band.rules)
        if (rule.threshold > minutes(0) && rule.threshold <= worked)
            pause = rule.pause;
    return pause;
}

/// The column follows the band's number, not its category; a figure brought to nothing reads "0:00".
void take_off(MonthSheet& sheet, int r, int band_number, minutes pause) {
    const int column = band_number + col::kind;
    if (!sheet.hyou.contains(r, column))
        return;
    QString& cell = sheet.hyou(r, column);
    cell = time_to_text(minutes_to_time(minutes_of(cell) - pause));
}

minutes breaks_of_category(MonthSheet& sheet, int r, int column, minutes so_far) {
    const int category = category_of(sheet, column);
    const minutes worked = minutes_of(sheet.hyou(r, column));
    if (category == 0 || worked == minutes(0))
        return so_far;
    const auto& bands = sheet.band_table[weekday_of(sheet, r)];
    for (int b = 0; b < band_count; ++b) {
        if (bands[b].category != category)
            continue;
        const minutes pause = pause_of(bands[b], worked);
        so_far += pause;
        if (sheet.kyuflg == BreakHandling::Deducted)
            take_off(sheet, r, b, pause);
        sheet.hyou(r, col::break_time) = time_to_cell(minutes_to_time(so_far));
    }
    return so_far;
}

minutes break_of_day(MonthSheet& sheet, int r) {
    if (sheet.entry_cell.col == col::break_time)
        return minutes_of(sheet.hyou(r, col::break_time));
    minutes breakTotal(0);
    for (int column = col::first_category; column < sheet.hyou.Cols(); ++column)
        breakTotal = breaks_of_category(sheet, r, column, breakTotal);
    return breakTotal;
}

QString work_time_text(minutes work) {
    const QString text = time_to_text(last_four(digits(minutes_to_time(work).value)));
    return text == u"0:00" ? QString() : text;
}

void set_kind(MonthSheet& sheet, int r, const DayKind& kind, const QString& mark) {
    sheet.hyou(r, col::kind) = kind.name;
    sheet.hyou_system(r, record::kind_number) = kind.number;
    sheet.hyou_system(r, record::kind_name) = kind.name;
    sheet.mark(r) = mark;
}

/// `休出` stays when a day is cleared, so that a day that had work and gets work again keeps no kind by itself.
void settle_kind(MonthSheet& sheet, int r) {
    QString& holiday_work = sheet.hyou_system(r, record::holiday_work);
    if (sheet.hyou(r, col::work_time).isEmpty()) {
        set_kind(sheet, r, {}, {});
    } else if (Val(holiday_work) == 0) {
        set_kind(sheet, r, sheet.kind_with_work, u"1"_s);
        holiday_work = u"1"_s;
    }
}

} // namespace

void 出勤集計処理(MonthSheet& sheet, int r) {
    if (!starts_calculation(sheet.entry_cell.col))
        return;
    check_clock_cells(sheet, r);
    if (!is_day(sheet, r))
        return;
    blank_break_without_clock(sheet, r);
    const Stay stay = stay_of(sheet, r);
    cut_into_bands(sheet, r, stay);
    const minutes breakTotal = break_of_day(sheet, r);
    const minutes workMinutes = stay.clockOut - stay.clockIn - breakTotal;
    sheet.hyou(r, col::work_time) = work_time_text(workMinutes);
    settle_kind(sheet, r);
    tally_month(sheet);
}

} // namespace entry
