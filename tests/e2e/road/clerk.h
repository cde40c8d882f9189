#pragma once

// The clerk: a person at the main window, acting by mouse and keyboard on the real widgets. An act that finds no widget
// to act on throws.

#include "e2e/road/typed_month.h"
#include "ui/entry/ent_rovena_page.h"
#include "ui/main_window.h"

#include <stdexcept>

namespace e2e {

/// Something on the road isn't as it must be; the text says what.
struct RoadError : std::runtime_error {
    explicit RoadError(const QString& text) : std::runtime_error(text.toStdString()) {}
};

/// Throws a RoadError unless the condition holds.
void demand(bool condition, const QString& what);

class Clerk {
public:
    explicit Clerk(ui::MainWindow& window) : m_window(window) {}

    /// Clicks the button whose bitmap reads so, anywhere in the window.
    void press_button(const QString& label);

    /// The entry page in view.
    ui::ent_rovena_page& entry();
    /// The grid of this name on the page in view.
    ui::GridView& grid(const QString& name);
    void click_cell(const QString& grid_name, int row, int col);

    /// Clicks the radio button or check box that reads so on the page in view.
    void tick(const QString& label);
    /// Clicks into the text box of this name on the page in view.
    void click_box(const QString& label);
    /// Types a text where the keyboard is and presses Enter.
    void type_line(const QString& text);
    /// Steps through a selector to the item by the arrow keys.
    void step_to(QComboBox& selector, const QString& text);
    /// Opens the list that has the keyboard and steps through it to the item.
    void choose_item(const QString& text);

    void choose_employee(int row);
    /// Steps through the selectors by the arrow keys.
    void choose_month(int year, int month);

    /// Types the times of days that follow each other, by the keyboard alone from clock-in over clock-out and break to
    /// the next day.
    void type_days(const QList<TypedDay>& days);
    /// Types the days' remarks and chooses their kinds, each on its cell.
    void type_remarks(const QList<TypedDay>& days);
    void choose_kinds(const QList<TypedDay>& days);
    /// Types a count into the strip.
    void type_count(int column, const QString& digits);

private:
    QWidget* keyboard();
    void come_back();

    ui::MainWindow& m_window;
};

} // namespace e2e
