#pragma once

// The message boxes and dialogs that come up on a road. One that is awaited is pictured and answered; any other is a
// fault: it is closed, and what it said is kept.

#include "e2e/road/pictures.h"

#include <QStringList>
#include <QTimer>
#include <deque>

class QTableWidget;

namespace e2e {

class Boxes {
public:
    explicit Boxes(Pictures& pictures);

    struct Awaited {
        QString text; ///< part of what the box says, or of the title of a dialog
        QString button;
        QString picture;         ///< its name; empty takes none
        QList<QStringList> rows; ///< of the table in it, from the first column on; none: whatever there is
    };
    /// The next box, behind those that are awaited already.
    void await(const Awaited& box) { m_awaited.push_back(box); }

    /// What is wrong: boxes that nobody awaited, and awaited ones that haven't come. Empty if nothing is.
    QStringList faults() const;

private:
    void look();
    void answer(QWidget& box);
    void compare(const QList<QStringList>& wanted, const QTableWidget& table);

    Pictures& m_pictures;
    QTimer m_timer;
    std::deque<Awaited> m_awaited;
    QStringList m_unexpected;
};

} // namespace e2e
