#pragma once

// StandingLine: a line that tells how things stand, with a button beside it for what can be done about that. Its place
// stands also while it says nothing, so that nothing on the page moves.

#include <QLabel>
#include <QPushButton>
#include <QWidget>

namespace ui {

class StandingLine : public QWidget {
    Q_OBJECT
public:
    StandingLine(QStringView button, QWidget* parent);

    /// `offers`: whether the button is there.
    void say(const QString& words, bool offers);

    QLabel* words() const { return m_words; }
    QPushButton* button() const { return m_button; }

private:
    QLabel* m_words;
    QPushButton* m_button;
};

} // namespace ui
