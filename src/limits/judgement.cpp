#include "limits/judgement.h"

#include <algorithm>

namespace limits {

using namespace base;

namespace {

constexpr int whole = 1000;
constexpr int year = 12;
constexpr int least_mean = 2;
constexpr int most_mean = 6;

class Judge {
public:
    Judge(const Figures& figures, const Rules& rules, const Span& span)
        : m_figures(figures), m_rules(rules), m_span(span) {}

    Judgement whole_judgement() && {
        if (!m_rules.free_hours.contains(m_figures.key)) {
            judge_overtime();
            judge_all_hours();
        }
        if (!m_rules.free_leave.contains(m_figures.key))
            judge_leave();
        if (!m_rules.free_hours.contains(m_figures.key))
            judge_breaks();
        return std::move(m_judgement);
    }

private:
    /// A limit of 0 isn't looked at.
    void add(Judged judged, bool over) {
        if (judged.limit == 0)
            return;
        judged.share = int(judged.figure * whole / judged.limit);
        place(judged, over);
    }

    void place(Judged judged, bool over) {
        const bool near = judged.share * 100 >= m_rules[Figure::NearPercent] * whole;
        judged.level = over ? Level::Over : near ? Level::Near : Level::Fine;
        m_judgement.level = std::max(m_judgement.level, judged.level);
        m_judgement.judged << judged;
        const auto& all = m_judgement.judged;
        const auto rank = [&](int at) { return std::pair(all[at].level, all[at].share); };
        const int last = int(all.size()) - 1;
        if (m_judgement.nearest < 0 || rank(last) > rank(m_judgement.nearest))
            m_judgement.nearest = last;
    }

    void judge_overtime() {
        const qint64 most = m_rules.hours(Figure::OvertimeMonth).count();
        const qint64 month = m_figures.hours[0].overtime.count();
        add({.measure = Measure::Month, .figure = month, .limit = most}, month > most && !m_rules.special);
        minutes sum(0);
        qint64 above = 0;
        for (int back = 0; back < m_span.of_hours; ++back) {
            sum += m_figures.hours[size_t(back)].overtime;
            above += m_figures.hours[size_t(back)].overtime.count() > most ? 1 : 0;
        }
        const qint64 most_year = m_rules.hours(m_rules.special ? Figure::SpecialYear : Figure::OvertimeYear).count();
        add({.measure = Measure::Year, .figure = sum.count(), .limit = most_year}, sum.count() > most_year);
        const int months = m_rules[Figure::SpecialMonths];
        if (m_rules.special && most > 0)
            add({.measure = Measure::MonthsAbove, .figure = above, .limit = months}, above > months);
    }

    void judge_all_hours() {
        const qint64 below = m_rules.hours(Figure::AllMonth).count();
        const qint64 month = m_figures.hours[0].all().count();
        add({.measure = Measure::AllMonth, .figure = month, .limit = below}, month >= below);
        Judged worst{.measure = Measure::Average, .limit = m_rules.hours(Figure::AllAverage).count()};
        minutes sum = m_figures.hours[0].all();
        for (int months = least_mean; months <= most_mean; ++months) {
            sum += m_figures.hours[size_t(months - 1)].all();
            const qint64 mean = (sum.count() + months - 1) / months; // a part of a minute above the limit is above it
            if (mean > worst.figure || worst.months == 0) {
                worst.figure = mean;
                worst.months = months;
            }
        }
        add(worst, worst.figure > worst.limit);
    }

    /// What is missing presses the more the less of the year is left, and is a breach once the year is over.
    void judge_leave() {
        Judged leave{.measure = Measure::Leave,
            .figure = m_figures.half_days,
            .limit = 2 * m_rules[Figure::LeaveDays],
            .share = 0};
        if (leave.limit == 0)
            return;
        if (leave.figure < leave.limit)
            leave.share = m_span.over * whole / year;
        place(leave, leave.share == whole);
    }

    void judge_breaks() {
        for (const WorkedDay& day : m_figures.days)
            if (const minutes needed = needed_break(day.work, m_rules); day.pause < needed)
                m_judgement.breaks << ShortBreak{day, needed};
        const bool any = !m_judgement.breaks.isEmpty();
        place({.measure = Measure::Breaks, .figure = m_judgement.breaks.size(), .share = any ? whole : 0}, any);
    }

    const Figures& m_figures;
    const Rules& m_rules;
    const Span& m_span;
    Judgement m_judgement;
};

std::pair<Level, int> rank(const Judgement& judgement) {
    if (judgement.nearest < 0)
        return {Level::Fine, -1};
    return {judgement.level, judgement.judged[judgement.nearest].share};
}

} // namespace

int Judged::reached() const {
    return measure == Measure::Leave ? int(figure * whole / limit) : share;
}

const Judged* Judgement::of(Measure measure) const {
    const auto found = std::ranges::find(judged, measure, &Judged::measure);
    return found == judged.end() ? nullptr : &*found;
}

minutes needed_break(minutes work, const Rules& rules) {
    const auto exceeds = [&](Figure bound) { return rules[bound] > 0 && work > rules.hours(bound); };
    if (exceeds(Figure::LongWork))
        return minutes(rules[Figure::LongBreak]);
    return minutes(exceeds(Figure::ShortWork) ? rules[Figure::ShortBreak] : 0);
}

Judgement judge(const Figures& figures, const Rules& rules, const Span& span) {
    return Judge(figures, rules, span).whole_judgement();
}

bool stands_before(const Judgement& a, const Judgement& b) {
    return rank(a) > rank(b);
}

} // namespace limits
