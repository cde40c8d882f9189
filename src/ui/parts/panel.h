#pragma once

// Panel: a card with a heading, for controls that belong together. They are laid into body(), below the heading.

#include "ui/parts/card.h"

#include <QVBoxLayout>

namespace ui {

class Panel : public Card {
    Q_OBJECT
public:
    Panel(const QString& heading, QWidget* parent);

    QVBoxLayout* body() const { return m_body; }

private:
    QVBoxLayout* m_body;
};

} // namespace ui
