#pragma once

// The company's own days off: the lines that are typed, registered at once.

#include "setup/own_holidays.h"

#include <QDialog>

class QLabel;
class QPlainTextEdit;

namespace ui {

class OwnHolidaysPanel : public QDialog {
    Q_OBJECT
public:
    /// Loads the form. The session outlives the panel.
    OwnHolidaysPanel(frame::Session& session, QWidget* parent);

    void reject() override;

private:
    void register_lines();

    setup::own_holidays m_form;
    QPlainTextEdit* m_lines;
    QLabel* m_msglab;
};

} // namespace ui
