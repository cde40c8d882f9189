#include "ui/parts/box_in_hand.h"

#include "ui/parts/colours.h"

#include <QApplication>
#include <QLineEdit>
#include <utility>

namespace ui {

namespace {

/// Where the desktop draws a dialog itself, no window of the program is active while it is open.
bool stays_in_program() {
    return QApplication::activeWindow() || QApplication::activeModalWidget();
}

} // namespace

bool leaves_control(Qt::FocusReason reason) {
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
}

void tint(QLineEdit& box, bool in_hand) {
    QPalette own = box.palette();
    own.setColor(QPalette::Base, QColor::fromRgb(in_hand ? colours::box_in_hand : colours::ground));
    box.setPalette(own);
}

bool BoxInHand::came(Qt::FocusReason reason) {
    const bool was_in_hand = std::exchange(m_in_hand, true);
    return !was_in_hand || leaves_control(reason);
}

bool BoxInHand::went(Qt::FocusReason reason) {
    const bool left = leaves_control(reason);
    const bool behind_a_window = reason == Qt::ActiveWindowFocusReason && stays_in_program();
    m_in_hand = !left && !behind_a_window;
    return left;
}

} // namespace ui
