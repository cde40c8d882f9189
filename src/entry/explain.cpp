#include "entry/explain.h"

#include "base/literals.h"
#include "entry/cells.h"
#include "entry/day_figures.h"

#include <QStringList>

namespace entry {

using namespace base;

namespace {

QString shown(minutes time) {
    return time_to_text(minutes_to_time(time));
}

QString category_name(const MonthSheet& sheet, int column) {
    return sheet.hyou(row::heading, column);
}

QString rule_text(const MonthSheet& sheet, int r, const BandFigure& figure) {
    const BreakRule& rule = sheet.band_table[weekday_of(sheet, r)][figure.number].rules[*figure.rule];
    return u"休憩 %1 %2以上で %3"_s.arg(category_name(sheet, figure.column), shown(rule.threshold), shown(rule.pause));
}

QStringList parts_of(const MonthSheet& sheet, int r, const DayFigures& day, BreakFrom break_from) {
    QStringList parts;
    for (const BandFigure& figure : day.bands)
        if (figure.stands && figure.inside > minutes(0))
            parts << category_name(sheet, figure.column) + u' ' + shown(figure.inside);
    if (day.outside > minutes(0) && !sheet.category_list.isEmpty())
        parts << u"時間帯外 "_s + shown(day.outside);
    if (break_from == BreakFrom::Cell)
        return parts << u"休憩は手入力"_s;
    for (const BandFigure& figure : day.bands)
        if (figure.rule)
            parts << rule_text(sheet, r, figure);
    return parts;
}

} // namespace

QString explained_day(const MonthSheet& sheet, int r) {
    const QString& in = sheet.hyou(r, col::clock_in);
    const QString& out = sheet.hyou(r, col::clock_out);
    if (!is_day(sheet, r) || (in.isEmpty() && out.isEmpty()))
        return {};
    DayFigures day = day_figures(sheet, r, BreakFrom::Rules);
    const bool by_hand = Val(sheet.mark(r)) != 2 && day.breakTotal != minutes_of(sheet.hyou(r, col::break_time));
    const BreakFrom break_from = by_hand ? BreakFrom::Cell : BreakFrom::Rules;
    day = day_figures(sheet, r, break_from);
    const QString sum = u"%1～%2 在社 %3 − 休憩 %4 ＝ 勤務 %5"_s.arg(
        in, out, shown(day.stay.length()), shown(day.breakTotal), shown(day.workMinutes));
    const QStringList parts = parts_of(sheet, r, day, break_from);
    return parts.isEmpty() ? sum : u"%1（%2）"_s.arg(sum, parts.join(u"　"_s));
}

} // namespace entry
