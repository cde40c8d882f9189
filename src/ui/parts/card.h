#pragma once

// A quiet card, white if not told otherwise, on the grey ground of a page.

#include "ui/parts/colours.h"

#include <QWidget>

namespace ui {

class Card : public QWidget {
    Q_OBJECT
public:
    explicit Card(QWidget* parent = nullptr, QRgb ground = colours::ground, QRgb line = colours::line);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRgb m_ground;
    QRgb m_line;
};

} // namespace ui
