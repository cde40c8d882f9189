#include "entry/hand_sums.h"

#include "entry/hand_figures.h"
#include "entry/tally.h"

namespace entry {

using namespace base;

namespace {

/// Those that nothing was typed over, and no calculation took away; also those that have no column now.
HandSums::Texts still_shown(HandSums::Texts counts, const MonthSheet& sheet) {
    counts.removeIf([&](const auto& count) {
        const auto shown = shown_under(count.key(), sheet);
        return shown && !same_under(count.key(), *shown, count.value());
    });
    return counts;
}

QStringList totals_of(const MonthSheet& sheet) {
    QStringList totals;
    for (int column = 0; column < sheet.hyou.Cols(); ++column)
        totals << sheet.hyou(row::total, column);
    return totals;
}

QStringList sums_of_days(const MonthSheet& sheet) {
    QStringList sums;
    for (int column = 0; column < sheet.hyou.Cols(); ++column)
        sums << (is_sum(column) ? sum_of_days(sheet, column) : QString());
    return sums;
}

/// A tally doesn't mark the total.
bool is_marked(const MonthSheet& sheet) {
    return !sheet.mark(row::total).isEmpty();
}

QString tag_of_sum(const MonthSheet& sheet, int column) {
    return sum_tag.toString() + tag_of(sheet, column);
}

QString read_under(const QString& tag, const MonthSheet& as_read) {
    return shown_under(tag, as_read).value_or(QString());
}

} // namespace

void HandSums::begin(const MonthSheet& sheet) {
    *this = {};
    stand(sheet);
}

void HandSums::take_up(const Draft& draft) {
    m_typed = draft.counts;
    m_posted = draft.posted_counts;
    m_beneath = draft.counts_beneath;
    for (const Texts* texts : {&m_typed, &m_posted})
        for (const QString& tag : texts->keys())
            m_touched.insert(tag);
}

void HandSums::stand(const MonthSheet& sheet) {
    m_totals = totals_of(sheet);
    m_of_days = sums_of_days(sheet);
    m_posted = still_shown(m_posted, sheet);
}

void HandSums::look(const MonthSheet& sheet, const MonthSheet& as_read) {
    const QStringList before = std::exchange(m_totals, totals_of(sheet));
    const QStringList of_days = std::exchange(m_of_days, sums_of_days(sheet));
    for (int column = col::break_time; before.size() == m_totals.size() && column < m_totals.size(); ++column)
        if (is_sum(column) && m_totals[column] != before[column]) {
            const QString tag = tag_of_sum(sheet, column);
            const bool follows = m_totals[column] == m_of_days[column];
            const bool typed_back =
                is_marked(sheet) && m_of_days == of_days && !same_time(m_totals[column], read_under(tag, as_read));
            m_typed.remove(tag);
            if (!follows || typed_back)
                type(tag, m_totals[column]);
        }
    m_typed = still_shown(m_typed, sheet);
}

void HandSums::type(const QString& tag, const QString& text) {
    m_typed.insert(tag, text);
    m_touched.insert(tag);
}

void HandSums::count_typed(const MonthSheet& sheet, int column) {
    type(sheet.hyou_day(strip::tag, column), sheet.hyou_day(strip::count, column));
}

void HandSums::bring_back(const Texts& typed) {
    m_typed = typed;
    m_totals.clear(); // what stands in the sums then was looked at then
}

void HandSums::posted(const MonthSheet& sheet, const MonthSheet& as_read) {
    look(sheet, as_read);
    Texts posted = still_shown(m_posted, sheet);
    for (const auto& [tag, text] : std::exchange(m_typed, {}).asKeyValueRange()) {
        const auto waiting = m_posted.constFind(tag);
        const QString last = waiting == m_posted.cend() ? read_under(tag, as_read) : *waiting;
        m_beneath[tag] = waiting == m_posted.cend() ? last : m_beneath.value(tag) + between_texts + last;
        posted.insert(tag, text);
    }
    m_posted = posted;
}

void HandSums::let_posted_go() {
    m_posted.clear();
    m_beneath.clear();
}

void HandSums::put_into(Draft& draft, const MonthSheet& sheet, const MonthSheet& as_read) const {
    draft.counts = m_typed;
    draft.counts.removeIf([&](const auto& count) {
        return m_posted.contains(count.key()) && m_posted.value(count.key()) == count.value();
    });
    draft.posted_counts = still_shown(m_posted, sheet);
    draft.counts_beneath.clear();
    for (const QString& tag : draft.posted_counts.keys())
        draft.counts_beneath.insert(tag, m_beneath.value(tag));
    if (draft.unsaved_days() > 0)
        return;
    for (const QString& tag : m_touched)
        if (const auto shown = shown_under(tag, sheet); shown && !same_under(tag, *shown, read_under(tag, as_read)))
            draft.counts.insert(tag, *shown);
}

} // namespace entry
