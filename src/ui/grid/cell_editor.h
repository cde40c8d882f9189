#pragma once

// The controls that are laid over a cell in hand: the one input box and the one list of a grid.
//
// CellEditor shows a base::CellEditor, which its form places, fills and puts away. The widget knows no rule: every key
// goes to the form first, and what a paste or an input method brings is asked of it too. Out of sight the box keeps the
// focus and its text, as the form commits when the focus leaves.

#include "base/cell_editor.h"
#include "ui/parts/box_in_hand.h"

#include <QComboBox>
#include <QLineEdit>
#include <functional>

namespace ui {

class GridView;

/// The form's acts behind the box. Those with a default may be unset.
struct EditorActs {
    /// A key that the forms know (see key_codes.h) goes down. True if it moved the cursor; else it is the box's own.
    std::function<bool(int key_code)> KeyDown;
    /// A character is about to be typed, 8 for whatever takes characters away. False drops it.
    std::function<bool(int character)> KeyPress;
    /// Text that arrives in one piece; gives back what of it stands.
    std::function<QString(const QString& text)> Insert;
    /// The text after an edit that stood.
    std::function<void(const QString& text)> Change;
    /// The focus went to another control of this window.
    std::function<void()> LostFocus;
    /// Undo and redo, once the box has nothing of its own to undo or redo.
    std::function<void()> Undo{};
    std::function<void()> Redo{};
    /// The clipboard's text, before it is inserted. True if the page took it for more than this cell.
    std::function<bool(const QString& text)> Paste{};
};

class CellEditor : public QLineEdit {
    Q_OBJECT
public:
    /// Grid and state must outlive the box, which becomes a child of the grid's viewport.
    CellEditor(GridView& grid, base::CellEditor& state, EditorActs acts);

    /// Takes over the state: text, place, alignment of the cell, input method. A fresh placement (`select_all`, taken
    /// back here) brings its cell into view, takes the focus and selects the text.
    void refresh();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void type(QKeyEvent* event, int character);
    QString accepted(const QString& text);
    void go_back(QKeyEvent* event, bool own, const std::function<void()>& of_the_page);
    void paste_text(const QString& text);
    void place();

    GridView& m_grid;
    base::CellEditor& m_state;
    EditorActs m_acts;
    BoxInHand m_keyboard;
};

/// The list laid over a cell that is chosen instead of typed. The page fills it; `activated` is the person's choice.
/// Every key ends at the list, so that none moves the grid beneath; out of sight it chooses nothing.
class CellCombo : public QComboBox {
    Q_OBJECT
public:
    /// The grid must outlive the list, which becomes a child of its viewport.
    explicit CellCombo(GridView& grid);

    /// Lays it over the cell, enabled and with that item selected (-1: none); out of sight while the cell is.
    void lay_over(base::Cell cell, int item);
    /// Out of sight, the keyboard kept.
    void step_aside();
    /// Out of sight and disabled; the keyboard, if it is here, goes back to the grid.
    void put_away();

    /// The list is as wide as its names, however narrow the cell is.
    void showPopup() override;

    /// The next time that it is laid over a cell, the cell is brought into view.
    void bring_into_view() { m_into_view = true; }

    /// What keys choose by number and leave the list; unset, digits look for a name and Enter does nothing.
    std::function<void(int digit)> Digit{};
    std::function<void(int key)> Leave{}; ///< Enter or Escape
    /// Another character was typed, by which the list looks for a name.
    std::function<void(int character)> KeyPress{};

protected:
    /// Like a cell, with a small arrow: the desktop's own look would leave no room for the text.
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    GridView& m_grid;
    Qt::Alignment m_alignment = Qt::AlignCenter; ///< of the cell it lies over
    bool m_into_view = false;
};

} // namespace ui
