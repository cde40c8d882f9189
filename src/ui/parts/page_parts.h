#pragma once

// What a page of work has around it: the heading and a line on top, the work in the middle, the buttons at the foot;
// and how it tells in the middle of its work how that stands.

#include <QHBoxLayout>
#include <QLabel>
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

/// Paints the words before this returns, so that they are seen while the work goes on; no event is let in. The label
/// must lie in a layout.
void show_at_once(QLabel& label, const QString& text);

} // namespace ui
