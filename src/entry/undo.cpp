#include "entry/undo.h"

#include "base/literals.h"
#include "base/text.h"

namespace entry {

using namespace base;

namespace {

/// The cells of all tables that typing changes, always in the same order.
template <class AnySheet, class Visit>
void for_each_cell(AnySheet& sheet, const Visit& visit) {
    for (auto* table : {&sheet.hyou, &sheet.hyou_system, &sheet.hyou_day})
        for (int r = 0; r < table->Rows(); ++r)
            for (int column = 0; column < table->Cols(); ++column)
                visit((*table)(r, column));
}

} // namespace

UndoHistory::State UndoHistory::state_of(const MonthSheet& sheet, const BesideSheet& beside) {
    State state{{}, beside, sheet.entry_cell, sheet.pending_cell};
    for_each_cell(sheet, [&](const QString& cell) { state.texts << cell; });
    return state;
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
void UndoHistory::record(const MonthSheet& sheet, const BesideSheet& beside, Step step) {
    if (m_states.empty())
        return;
    State state = state_of(sheet, beside);
    State& standing = m_states[m_now];
    const bool changed = state.texts != standing.texts || state.beside.clashes != standing.beside.clashes;
    if (changed)
        m_states.resize(m_now + 1);
    if (!changed || (step == Step::Joins && can_undo())) {
        m_states[m_now] = std::move(state);
        return;
    }
    m_states.push_back(std::move(state));
    if (m_states.size() > longest + 1)
        m_states.pop_front();
    m_now = m_states.size() - 1;
}

void UndoHistory::posted(const MonthSheet& sheet) {
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
