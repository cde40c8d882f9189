#pragma once

// A quiet card, white if not told otherwise, with a thin line around it, on the grey ground of a page.

#include "ui/parts/colours.h"

#include <QWidget>

namespace ui {

struct CardLook {
    QRgb ground = colours::ground;
    QRgb line = colours::line;
    int rounding = 6; ///< of the corners, pixels
};

class Card : public QWidget {
    Q_OBJECT
public:
    explicit Card(QWidget* parent, CardLook look = {});

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    CardLook m_look;
};

} // namespace ui
