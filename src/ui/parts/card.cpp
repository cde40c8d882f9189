#include "ui/parts/card.h"

#include <QPainter>

namespace ui {

Card::Card(QWidget* parent, QRgb ground, QRgb line) : QWidget(parent), m_ground(ground), m_line(line) {}

void Card::paintEvent(QPaintEvent*) {
    constexpr qreal half_a_line = 0.5;
    constexpr qreal rounding = 6;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor::fromRgb(m_line));
    painter.setBrush(QColor::fromRgb(m_ground));
    painter.drawRoundedRect(
        QRectF(rect()).adjusted(half_a_line, half_a_line, -half_a_line, -half_a_line), rounding, rounding);
}

} // namespace ui
