#include "ui/masters/choice_list.h"

#include "ui/grid/grid_view.h"
#include "ui/parts/key_codes.h"

#include <QAbstractItemView>
#include <QKeyEvent>

namespace ui {

ChoiceList::ChoiceList(GridView& grid, masters::ComboBox& state, ChoiceActs acts)
    : CellCombo(grid), m_state(state), m_acts(std::move(acts)) {
    setPlaceholderText(masters::unset_choice.toString());
    connect(this, &QComboBox::activated, this, [this](int item) { m_acts.Click(item); });
}

void ChoiceList::refresh() {
    take_items();
    if (m_state.visible)
        lay_over(m_state.cell, m_state.index);
    else if (m_state.active)
        step_aside();
    else
        put_away();
}

void ChoiceList::take_items() {
    if (m_shown == m_state.items)
        return;
    m_shown = m_state.items;
    clear();
    for (int item = 0; item < m_shown.size(); ++item)
        addItem(m_state.choice(item).name);
}

void ChoiceList::keyPressEvent(QKeyEvent* event) {
    const int character = key_character(event->key(), event->text());
    if (!m_acts.KeyPress || character == 0 || !m_acts.KeyPress(character))
        CellCombo::keyPressEvent(event);
}

/// The list that drops down takes the keyboard a second time as any control would.
void ChoiceList::focusOutEvent(QFocusEvent* event) {
    CellCombo::focusOutEvent(event);
    if (leaves_control(event->reason()) && !view()->isVisible())
        m_acts.LostFocus();
}

} // namespace ui
