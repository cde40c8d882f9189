#pragma once

// The message boxes that come up on the tour. One that is awaited is pictured and answered; any other is a fault: it is
// closed, and what it said is kept.

#include <QDir>
#include <QStringList>
#include <QTimer>
#include <optional>

class QWidget;

namespace tour {

/// The widget as NAME.png in the folder, at the scale of the screen. Throws e2e::RoadError if it can't be written.
void save_picture(QWidget& of, const QDir& out, const QString& name);

class Boxes {
public:
    /// Pictures go into the folder.
    explicit Boxes(const QDir& out);

    /// The next box has this text; it is pictured under the name and the button is pressed.
    void await(const QString& text, const QString& button, const QString& picture_name);

    /// Whether the awaited box has come.
    bool answered() const { return !m_awaited; }

    /// What boxes said that nobody awaited.
    const QStringList& unexpected() const { return m_unexpected; }

private:
    struct Awaited {
        QString text;
        QString button;
        QString picture_name;
    };
    void look();

    QDir m_out;
    QTimer m_timer;
    std::optional<Awaited> m_awaited;
    QStringList m_unexpected;
};

} // namespace tour
