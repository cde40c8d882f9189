#pragma once

// The message boxes and dialogs that come up on the tour. One that is awaited is pictured and answered; any other is a
// fault: it is closed, and what it said is kept.

#include "pictures.h"

#include <QStringList>
#include <QTimer>
#include <deque>

namespace tour {

class Boxes {
public:
    explicit Boxes(Pictures& pictures);

    /// The next box, behind those that are awaited already, has this text, or a dialog this title; it is pictured under
    /// the name and the button is pressed.
    void await(const QString& text, const QString& button, const QString& picture_name);

    /// Whether every awaited box has come.
    bool answered() const { return m_awaited.empty(); }

    /// What boxes said that nobody awaited.
    const QStringList& unexpected() const { return m_unexpected; }

private:
    struct Awaited {
        QString text;
        QString button;
        QString picture_name;
    };
    void look();

    Pictures& m_pictures;
    QTimer m_timer;
    std::deque<Awaited> m_awaited;
    QStringList m_unexpected;
};

} // namespace tour
