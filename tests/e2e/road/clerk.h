#pragma once

// The clerk: a person at a window of the program, acting by mouse and keyboard on the real widgets that are in sight.
// An act that finds no widget to act on throws a RoadError.

#include "e2e/road/steps.h"
#include "ui/grid/grid_view.h"

#include <QLineEdit>
#include <functional>

namespace e2e {

class Clerk {
public:
    explicit Clerk(QWidget& window) : m_window(window) {}

    /// The window, or the dialog over it. A window manager gives it the keyboard back behind a list or a message; a
    /// desktop without a display has none.
    QWidget& front();

    /// Clicks the button whose bitmap reads so.
    void press_button(const QString& label);
    /// Clicks the radio button or check box that reads so.
    void tick(const QString& label);
    /// Clicks into the text box of this name.
    void click_box(const QString& label);
    QLineEdit& box(const QString& label);
    void click_cell(const QString& grid_name, int row, int col);
    ui::GridView& grid(const QString& name);

    /// Types words and keys where the keyboard is, as support::type().
    void type(const QString& words);
    /// The box that has the keyboard.
    QLineEdit& in_hand();
    /// The name of what has the keyboard.
    QString keyboard_at();
    /// The selected text of the box in hand, which alone is lit.
    QString selected();
    /// Opens the list that has the keyboard and steps through it to the item.
    void choose_item(const QString& text);

    /// Looks for a text that stands somewhere in sight.
    void read(const QString& text);
    QStringList buttons_down();
    /// What isn't whole in sight, but for the contents of scroll areas.
    QStringList cut_off();

private:
    template <typename Widget>
    Widget& find(const QString& what, const std::function<bool(const Widget&)>& wanted);
    QWidget& keyboard();

    QWidget& m_window;
};

} // namespace e2e
