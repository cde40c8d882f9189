#pragma once

// ChoiceList: shows a masters::ComboBox, the list of master items that lies over a cell.

#include "masters/combo_box.h"
#include "ui/grid/cell_editor.h"

namespace ui {

/// The form's acts behind the list. `KeyPress` may be unset.
struct ChoiceActs {
    std::function<void(int item)> Click;
    std::function<bool(int character)> KeyPress; ///< true if the form took the key
    std::function<void()> LostFocus;             ///< not while the list itself drops down
};

class ChoiceList : public CellCombo {
    Q_OBJECT
public:
    /// Grid and state must outlive the list.
    ChoiceList(GridView& grid, masters::ComboBox& state, ChoiceActs acts);

    /// Takes over items, place and selection. Out of sight with a cell in hand it keeps the keyboard.
    void refresh();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void take_items();

    masters::ComboBox& m_state;
    ChoiceActs m_acts;
    QStringList m_shown; ///< the items as the form has them
};

} // namespace ui
