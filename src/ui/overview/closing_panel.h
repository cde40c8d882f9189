#pragma once

// Closing a month, and opening it again: what stands against it, or what became different since, and the month's
// closings so far. The panel decides nothing: it gives back what the person wants.

#include "overview/ent_itiran.h"

#include <QDialog>

namespace ui {

class ClosingPanel : public QDialog {
    Q_OBJECT
public:
    enum class Answer { Back, Close, Reopen };

    /// The form has looked at everybody.
    ClosingPanel(const overview::ent_itiran& form, QWidget* parent);

    Answer answer() const { return m_answer; }
    /// What was chosen in the list, to go there.
    const std::optional<overview::Told>& place() const { return m_place; }

private:
    QWidget* make_list(const QList<overview::Told>& told, QDate first);
    QWidget* make_history(const QList<common::Closing>& closings);
    QWidget* make_buttons(bool closed);
    void end(Answer answer);

    Answer m_answer = Answer::Back;
    std::optional<overview::Told> m_place;
};

} // namespace ui
