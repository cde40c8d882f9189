#pragma once

// What a person sees while the backup is made: a panel in the middle of the window that is about to close, with what is
// in hand and how far it has come. It takes nothing and goes by itself.

#include "frame/backup.h"

#include <QFrame>

class QLabel;
class QProgressBar;

namespace ui {

class BackupPanel : public QFrame {
    Q_OBJECT
public:
    /// Not seen before the first step.
    explicit BackupPanel(QWidget& window);

    /// Of 0 steps the bar only says that something goes on.
    void show_step(const QString& text, frame::StepsDone steps);

private:
    QLabel* m_text;
    QProgressBar* m_bar;
};

} // namespace ui
