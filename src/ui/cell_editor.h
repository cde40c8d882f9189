#pragma once

// The controls that are laid over a cell in hand: the one input box and the one list of a grid.
//
// CellEditor shows a base::CellEditor, which its form places, fills and puts away. The widget knows no rule: every key
// goes to the form first, and whatever changes the text (typing, pasting, an input method) is asked of it character by
// character. Out of sight the box keeps the focus and its text, as the form commits only when the focus leaves.

#include "base/cell_editor.h"

#include <QComboBox>
#include <QLineEdit>
#include <functional>

namespace ui {

class GridView;

inline constexpr char32_t backspace = 8;

/// What the form makes of the keys. Every function must be set.
struct EditorKeys {
    /// A key goes down, before the box sees it. True if the form took it.
    std::function<bool(int key)> down;
    /// A character is about to be typed; `backspace` for whatever takes characters away. False drops it.
    std::function<bool(char32_t character)> press;
    /// The focus went to another control of the window.
    std::function<void()> left;
};

class CellEditor : public QLineEdit {
    Q_OBJECT
public:
    /// Grid and state must outlive the box, which becomes a child of the grid's viewport.
    CellEditor(GridView& grid, base::CellEditor& state, EditorKeys keys, QColor ground);

    /// Takes over the state: text, place, alignment of the cell, input method. A fresh placement (`select_all`, which is
    /// taken back here) brings its cell into view and takes the focus.
    void refresh();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString accepted(const QString& text);
    void place();

    GridView& m_grid;
    base::CellEditor& m_state;
    EditorKeys m_keys;
};

/// The list laid over a cell that is chosen instead of typed. `activated` is the person's choice; the page fills it.
class CellCombo : public QComboBox {
    Q_OBJECT
public:
    /// The grid must outlive the list, which becomes a child of its viewport.
    explicit CellCombo(GridView& grid);

    /// Lays it over the cell with that item selected (-1: none), enabled; `take_focus` at a fresh placement.
    void lay_over(base::Cell cell, int item, bool take_focus);
    /// Out of sight and disabled.
    void put_away();

private:
    GridView& m_grid;
};

} // namespace ui
