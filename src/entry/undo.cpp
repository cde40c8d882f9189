#include "entry/undo.h"

#include "base/literals.h"
#include "base/text.h"

#include <algorithm>

namespace entry {

using namespace base;

namespace {

/// The cells of all tables that typing changes, always in the same order: those that are seen first.
template <class AnySheet, class Visit>
void for_each_cell(AnySheet& sheet, const Visit& visit) {
    for (auto* table : {&sheet.hyou, &sheet.hyou_day, &sheet.hyou_system})
        for (int r = 0; r < table->Rows(); ++r)
            for (int column = 0; column < table->Cols(); ++column)
                visit((*table)(r, column));
}

} // namespace

UndoHistory::State UndoHistory::state_of(const MonthSheet& sheet, const BesideSheet& beside) {
    State state{{}, 0, beside, sheet.entry_cell, sheet.pending_cell, {}};
    for_each_cell(sheet, [&](const QString& cell) { state.texts << cell; });
    state.seen = state.texts.size() - qsizetype(sheet.hyou_system.Rows()) * sheet.hyou_system.Cols();
    return state;
}

bool UndoHistory::look_alike(const State& a, const State& b) {
    return std::equal(a.texts.begin(), a.texts.begin() + a.seen, b.texts.begin()) &&
           a.beside.clashes == b.beside.clashes;
}

BesideSheet UndoHistory::undo(MonthSheet& sheet) {
    size_t to = m_now - 1;
    while (to > 0 && look_alike(m_states[to], m_states[m_now]))
        --to;
    return go(sheet, to);
}

BesideSheet UndoHistory::redo(MonthSheet& sheet) {
    size_t to = m_now + 1;
    while (to + 1 < m_states.size() && look_alike(m_states[to], m_states[m_now]))
        ++to;
    return go(sheet, to);
}

void UndoHistory::begin(const MonthSheet& sheet, const BesideSheet& beside) {
    end();
    m_states.push_back(state_of(sheet, beside));
}

void UndoHistory::end() {
    m_states.clear();
    m_now = 0;
    m_posted.clear();
}

/// The cell in hand and the counts known of alone are no step: they are brought up to date where they stand.
bool UndoHistory::record(const MonthSheet& sheet, const BesideSheet& beside, Step step) {
    if (m_states.empty())
        return false;
    State state = state_of(sheet, beside);
    State& standing = m_states[m_now];
    const bool changed = state.texts != standing.texts || state.beside.clashes != standing.beside.clashes;
    if (changed)
        m_states.resize(m_now + 1);
    else
        state.count = standing.count;
    if (!changed || (step == Step::Joins && can_undo())) {
        m_states[m_now] = std::move(state);
        return changed;
    }
    m_states.push_back(std::move(state));
    if (m_states.size() > longest + 1)
        m_states.pop_front();
    m_now = m_states.size() - 1;
    return true;
}

void UndoHistory::record_count(const MonthSheet& sheet, const BesideSheet& beside, int column) {
    const bool goes_on = !m_states.empty() && m_states[m_now].count == column;
    if (record(sheet, beside, goes_on ? Step::Joins : Step::Own))
        m_states[m_now].count = column;
}

void UndoHistory::begin_count() {
    if (!m_states.empty())
        m_states[m_now].count.reset();
}

void UndoHistory::posted(const MonthSheet& sheet, const BesideSheet& beside) {
    for (State& state : m_states)
        state.beside.clashes.removeIf([&](const Clash& clash) { return !beside.clashes.contains(clash); });
    for (int r = row::first_day; r <= sheet.month.length(); ++r)
        if (!Trim(sheet.mark(r)).isEmpty())
            m_posted.insert(r);
}

BesideSheet UndoHistory::go(MonthSheet& sheet, size_t to) {
    m_now = to;
    const State& state = m_states[m_now];
    auto text = state.texts.cbegin();
    for_each_cell(sheet, [&](QString& cell) { cell = *text++; });
    sheet.entry_cell = state.entry_cell;
    sheet.pending_cell = state.pending_cell;
    for (const int r : std::as_const(m_posted))
        if (sheet.mark(r).isEmpty())
            sheet.mark(r) = u"1"_s;
    BesideSheet beside = state.beside;
    m_states[m_now] = state_of(sheet, beside);
    return beside;
}

} // namespace entry
