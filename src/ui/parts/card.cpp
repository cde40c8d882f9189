#include "ui/parts/card.h"

#include <QPainter>

namespace ui {

Card::Card(QWidget* parent, CardLook look) : QWidget(parent), m_look(look) {}

void Card::paintEvent(QPaintEvent*) {
    constexpr qreal half_a_line = 0.5;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor::fromRgb(m_look.line));
    painter.setBrush(QColor::fromRgb(m_look.ground));
    painter.drawRoundedRect(QRectF(rect()).adjusted(half_a_line, half_a_line, -half_a_line, -half_a_line),
        m_look.rounding, m_look.rounding);
}

} // namespace ui
