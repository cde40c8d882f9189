#pragma once

// The long work in the frame's status line: what is being done, a bar, and the button that cancels it. Out of sight
// while nothing runs.

#include "frame/work_line.h"

#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

namespace ui {

class WorkBar : public QWidget {
    Q_OBJECT
public:
    /// The line outlives the bar.
    explicit WorkBar(frame::WorkLine& line, QWidget* parent);

    /// Takes over how the work stands; a work that has begun brings the keyboard to the cancel button.
    void refresh();

private:
    frame::WorkLine& m_line;
    QLabel* m_what;
    QProgressBar* m_bar;
    QPushButton* m_cancel;
};

} // namespace ui
