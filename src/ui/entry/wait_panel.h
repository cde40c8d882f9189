#pragma once

// While a save waits for the turn: who has it and since when, and the way out. It comes into sight with the first word
// and goes with the end of the wait; nothing else of the program takes input meanwhile.

#include "frame/turn_link.h"

#include <QDialog>

class QLabel;

namespace ui {

class WaitPanel : public QDialog {
    Q_OBJECT
public:
    explicit WaitPanel(QWidget* parent);

    /// Shows how the wait stands. False once the person has given up.
    bool show_wait(const frame::TurnLink::Waiting& wait);

private:
    QLabel* m_words;
};

} // namespace ui
