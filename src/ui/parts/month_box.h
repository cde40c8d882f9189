#pragma once

// MonthBox: a year or month that is chosen from a list or typed. What is typed reaches the form key by key, and is no
// choice of the item that it happens to name; the wheel changes nothing, so that scrolling over it chooses no month.

#include "ui/parts/box_in_hand.h"

#include <QComboBox>
#include <functional>

namespace ui {

/// The form's acts behind the box. Every one must be set.
struct MonthActs {
    std::function<void(int index)> Click; ///< an item was chosen
    std::function<void(const QString& text)> Change;
    std::function<bool(int key_code)> KeyDown;   ///< true if the key moved the keyboard
    std::function<bool(int character)> KeyPress; ///< whether the character stands
    std::function<void()> GotFocus;
    std::function<void()> LostFocus;
};

class MonthBox : public QComboBox {
    Q_OBJECT
public:
    MonthBox(MonthActs acts, int width, QWidget* parent);

    /// Takes over the items and the text; the item of that text becomes the current one. A text that comes over the one
    /// in hand is selected.
    void show_items(const QStringList& items, const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    MonthActs m_acts;
    BoxInHand m_keyboard;
    bool m_clicked_into = false; ///< the click that brings the keyboard leaves the text selected
};

} // namespace ui
