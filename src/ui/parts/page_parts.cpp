#include "ui/parts/page_parts.h"

#include "ui/parts/colours.h"
#include "ui/parts/style.h"

#include <QFrame>

namespace ui {

namespace {

constexpr int page_margin = 12;
constexpr int gap = 8;

} // namespace

QWidget* page_rule(QWidget* parent) {
    auto* line = new QFrame(parent);
    line->setFixedHeight(2);
    line->setAutoFillBackground(true);
    line->setPalette(QPalette(QColor::fromRgb(colours::accent)));
    return line;
}

PageParts lay_parts(QWidget& page) {
    const PageParts parts{new QHBoxLayout, new QVBoxLayout, new QHBoxLayout};
    parts.head->setSpacing(2 * gap);
    parts.body->setSpacing(gap);
    parts.foot->setSpacing(gap);
    auto* column = new QVBoxLayout(&page);
    column->setContentsMargins(page_margin, gap, page_margin, gap);
    column->setSpacing(gap);
    column->addLayout(parts.head);
    column->addWidget(page_rule(&page));
    column->addLayout(parts.body, 1);
    column->addLayout(parts.foot);
    return parts;
}

QWidget* page_heading(QStringView caption, QWidget* parent) {
    auto* heading = new QLabel(caption.toString(), parent);
    letter(*heading, Lettering::Heading);
    return heading;
}

void show_at_once(QLabel& label, const QString& text) {
    label.setText(text);
    label.parentWidget()->layout()->activate();
    label.repaint();
}

} // namespace ui
