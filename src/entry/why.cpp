#include "entry/why.h"

#include "base/literals.h"
#include "entry/cells.h"

#include <QStringList>
#include <algorithm>

namespace entry {

using namespace base;

namespace {

QString shown(minutes time) {
    return time_to_text(minutes_to_time(time));
}

QString zero_shown(const QString& figure) {
    return figure.isEmpty() ? u"0:00"_s : figure;
}

QString category_name(const MonthSheet& sheet, int column) {
    return sheet.hyou(row::heading, column);
}

struct FiguredDay {
    DayFigures figures;
    bool by_hand = false; ///< the break was typed
};

/// The calculation asks the rules unless a break was typed last, which isn't written down: a break that the rules don't
/// give was typed if the work time follows from it.
FiguredDay figured(const MonthSheet& sheet, int r) {
    FiguredDay by_rules{day_figures(sheet, r, BreakFrom::Rules)};
    const bool waits = Val(sheet.mark(r)) == 2;
    if (waits || by_rules.figures.breakTotal == minutes_of(sheet.hyou(r, col::break_time)))
        return by_rules;
    FiguredDay by_hand{day_figures(sheet, r, BreakFrom::Cell), true};
    return by_hand.figures.work_time == sheet.hyou(r, col::work_time) ? by_hand : by_rules;
}

class Explaining {
public:
    Explaining(const MonthSheet& sheet, int r)
        : m_sheet(sheet), m_r(r), m_bands(sheet.band_table[weekday_of(sheet, r)]), m_day(figured(sheet, r)) {}

    Why whole() {
        m_why.stay = m_day.figures.stay;
        m_why.outside = m_day.figures.outside;
        m_why.to_be_calculated = Val(m_sheet.mark(m_r)) == 2;
        tell_bands();
        tell_breaks();
        for (int column = col::first_category; column < m_sheet.hyou.Cols(); ++column)
            add_category(column);
        add_break();
        add_work();
        return m_why;
    }

private:
    const QList<BandFigure>& figures() const { return m_day.figures.bands; }

    void tell_bands() {
        for (int number = 0; number < band_slots; ++number) {
            const Band& band = m_bands[number];
            if (band.start == band.end && band.category == 0)
                continue;
            WhyBand told{.name = band.name, .start = band.start, .end = band.end};
            const auto figure = std::ranges::find(figures(), number, &BandFigure::number);
            if (figure == figures().end()) {
                told.remark = u"勤務種類がありません"_s;
            } else {
                told.name = category_name(m_sheet, figure->column);
                told.inside = figure->inside;
                told.place = figure->column - col::first_category;
                told.remark = remark_on(band, *figure);
            }
            m_why.bands << told;
        }
        std::ranges::stable_sort(m_why.bands, {}, &WhyBand::start);
    }

    QString remark_on(const Band& band, const BandFigure& figure) const {
        const minutes in = m_why.stay.clockIn;
        if (band.counts_from_inside && (in < band.start || in > band.end))
            return u"出社がこの時間帯の中にあるときだけ数えます"_s;
        return figure.stands ? QString() : u"同じ種類の後の時間帯の値になります"_s;
    }

    void tell_breaks() {
        for (const BandFigure& figure : figures())
            if (figure.rule) {
                const BreakRule& rule = m_bands[figure.number].rules[*figure.rule];
                m_why.breaks << u"%1 %2以上で %3"_s.arg(
                    category_name(m_sheet, figure.column), shown(rule.threshold), shown(rule.pause));
            }
        if (m_day.by_hand)
            m_why.breaks << u"手入力"_s;
    }

    void add(const QString& name, int column, QList<WhyTerm> terms, const QString& figure) {
        m_why.sums << WhySum{name, column, std::move(terms), figure, m_sheet.hyou(m_r, column)};
    }

    void add_category(int column) {
        QList<WhyTerm> taken;
        minutes off(0);
        std::optional<WhyTerm> whole;
        for (const BandFigure& figure : figures()) {
            if (figure.column == column && figure.stands)
                whole = {u"時間帯の中"_s, figure.inside};
            if (figure.taken == column && figure.pause > minutes(0)) {
                taken << WhyTerm{u"休憩"_s, -figure.pause};
                off += figure.pause;
            }
        }
        QString figure = m_day.figures.categories[column - col::first_category];
        if (!whole) { // no band wrote here today: what stands here was what stood before, less the breaks
            figure = m_sheet.hyou(m_r, column);
            whole = {u"前の値"_s, minutes_of(figure) + off};
        }
        if (whole->time != minutes(0) || !taken.isEmpty())
            add(category_name(m_sheet, column), column, QList{*whole} + taken, figure);
    }

    void add_break() {
        QList<WhyTerm> terms;
        for (const BandFigure& figure : figures())
            if (figure.pause > minutes(0))
                terms << WhyTerm{category_name(m_sheet, figure.column), figure.pause};
        const QString& figure = m_day.figures.break_time;
        if (terms.isEmpty() && !figure.isEmpty())
            terms << WhyTerm{m_day.by_hand ? u"手入力"_s : u"前の値"_s, minutes_of(figure)};
        add(u"休憩"_s, col::break_time, terms, figure);
    }

    void add_work() {
        const DayFigures& day = m_day.figures;
        add(u"勤務"_s, col::work_time, {{u"在社"_s, day.stay.length()}, {u"休憩"_s, -day.breakTotal}}, day.work_time);
    }

    const MonthSheet& m_sheet;
    const int m_r;
    const std::array<Band, band_slots>& m_bands;
    const FiguredDay m_day;
    Why m_why;
};

QString line_of(const WhySum& sum) {
    const QString end = u"%1 %2"_s.arg(sum.name, zero_shown(sum.figure));
    if (sum.terms.size() < 2)
        return end;
    QString line;
    for (const WhyTerm& term : sum.terms) {
        if (!line.isEmpty())
            line += term.time < minutes(0) || term.name == u"休憩" ? u" − "_s : u" ＋ "_s;
        line += u"%1 %2"_s.arg(term.name, shown(std::chrono::abs(term.time)));
    }
    return u"%1 ＝ %2"_s.arg(line, end);
}

} // namespace

std::optional<Why> why_of(const MonthSheet& sheet, int r) {
    const bool blank = sheet.hyou(r, col::clock_in).isEmpty() && sheet.hyou(r, col::clock_out).isEmpty();
    if (!is_day(sheet, r) || blank)
        return std::nullopt;
    return Explaining(sheet, r).whole();
}

QString text_of(const WhySum& sum) {
    const QString line = line_of(sum);
    if (minutes_of(sum.figure) == minutes_of(sum.cell))
        return line;
    return u"%1（表は %2）"_s.arg(line, zero_shown(sum.cell));
}

} // namespace entry
