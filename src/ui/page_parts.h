#pragma once

// What a page of work has around it: the heading and a line on top, the work in the middle, the buttons at the foot.

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <QWidget>

namespace ui {

struct PageParts {
    QHBoxLayout* head;
    QVBoxLayout* body; ///< stretches
    QHBoxLayout* foot;
};

/// Lays the parts into a page that has no layout yet.
PageParts lay_parts(QWidget& page);

/// The line below the heading.
QWidget* page_rule(QWidget* parent);

/// The title of a page as a heading.
QWidget* page_heading(QStringView caption, QWidget* parent);

} // namespace ui
