#include "ui/parts/panel.h"

#include "ui/parts/colours.h"
#include "ui/parts/style.h"

#include <QLabel>

namespace ui {

namespace {

constexpr int side = 20;
constexpr int air = 12;
constexpr int between = 8;
constexpr CardLook look{.line = colours::heading_line, .rounding = 8};

} // namespace

Panel::Panel(const QString& heading, QWidget* parent) : Card(parent, look), m_body(new QVBoxLayout(this)) {
    m_body->setContentsMargins(side, air, side, air);
    m_body->setSpacing(between);
    auto* label = new QLabel(heading, this);
    letter(*label, Lettering::Section);
    m_body->addWidget(label);
}

} // namespace ui
