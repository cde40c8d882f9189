#pragma once

// The message boxes that come up on the tour. One that is awaited is pictured and answered; any other is a fault: it is
// closed, and what it said is kept.

#include <QDir>
#include <QStringList>
#include <QTimer>
#include <optional>

class QMessageBox;
class QWidget;

namespace tour {

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
    void answer(QMessageBox& box);
    void refuse(QWidget& box);

    QDir m_out;
    QTimer m_timer;
    std::optional<Awaited> m_awaited;
    QStringList m_unexpected;
};

} // namespace tour
