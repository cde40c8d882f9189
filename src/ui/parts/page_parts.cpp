#include "ui/parts/page_parts.h"

#include "ui/parts/colours.h"
#include "ui/parts/style.h"

#include <QFrame>

namespace ui {

QWidget* rule(QWidget* parent, QRgb colour, int height) {
    auto* line = new QFrame(parent);
    line->setFixedHeight(height);
    line->setAutoFillBackground(true);
    line->setPalette(QPalette(QColor::fromRgb(colour)));
    return line;
}

QWidget* page_rule(QWidget* parent) {
    return rule(parent, colours::accent, 2);
}

PageParts lay_parts(QWidget& page) {
    const PageParts parts{new QHBoxLayout, new QVBoxLayout, new QHBoxLayout};
    parts.head->setSpacing(2 * page_gap);
    parts.body->setSpacing(page_gap);
    parts.foot->setSpacing(page_gap);
    auto* column = new QVBoxLayout(&page);
    column->setContentsMargins(page_margin, page_gap, page_margin, page_gap);
    column->setSpacing(page_gap);
    column->addLayout(parts.head);
    column->addWidget(page_rule(&page));
    column->addLayout(parts.body, 1);
    column->addLayout(parts.foot);
    return parts;
}

QHBoxLayout* row_in(QWidget* row) {
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(no_margins);
    layout->setSpacing(page_gap);
    return layout;
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
