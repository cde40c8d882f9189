#include "ui/parts/panel.h"

#include "ui/parts/colours.h"
#include "ui/parts/style.h"

#include <QLabel>
#include <QPainter>

namespace ui {

namespace {

constexpr int side = 20;
constexpr int air = 12;
constexpr int corner = 8;

} // namespace

Panel::Panel(const QString& heading, QWidget* parent) : QWidget(parent), m_body(new QVBoxLayout(this)) {
    m_body->setContentsMargins(side, air, side, air);
    m_body->setSpacing(8);
    auto* label = new QLabel(heading, this);
    letter(*label, Lettering::Section);
    m_body->addWidget(label);
}

void Panel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor::fromRgb(colours::heading_line));
    painter.setBrush(QColor::fromRgb(colours::ground));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), corner, corner);
}

} // namespace ui
