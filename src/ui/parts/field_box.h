#pragma once

// FieldBox: a text box of a form. With the keyboard it is tinted and its whole text selected, so that typing replaces
// it.

#include "ui/parts/box_in_hand.h"

#include <QLineEdit>
#include <functional>

namespace ui {

/// The form's acts behind the box. All but `Change` may be unset. The text is selected after `GotFocus`.
struct FieldActs {
    std::function<void(const QString& text)> Change;
    std::function<bool(int key_code)> KeyDown = {};   ///< a key that the forms know; true if it moved the keyboard
    std::function<bool(int character)> KeyPress = {}; ///< whether a character that is typed stands; 8 is Backspace
    std::function<void()> GotFocus = {};
    std::function<void()> LostFocus = {};
};

/// What is typed into a box: names and readings need the input method, numbers don't. In a box of a time the cursor
/// stands before the text.
enum class FieldText { Words, Number, Time };

class FieldBox : public QLineEdit {
    Q_OBJECT
public:
    FieldBox(FieldText text, FieldActs acts, QWidget* parent);

    /// Takes over a text that isn't what the box shows. Where the form dropped what was typed, the cursor stays.
    void show_text(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void select_text();

    FieldText m_kind;
    FieldActs m_acts;
    BoxInHand m_keyboard;
    bool m_clicked_into = false; ///< the click that brings the keyboard leaves the text selected
};

} // namespace ui
