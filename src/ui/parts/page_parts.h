#pragma once

// What a page of work has around it: the heading and a line on top, the work in the middle, the buttons at the foot;
// and how it tells in the middle of its work how that stands.

#include <QHBoxLayout>
#include <QLabel>
#include <QMargins>
#include <QRgb>
#include <QVBoxLayout>
#include <QWidget>

namespace ui {

/// Pixels beside the parts of a page, and between them and what stands in them.
inline constexpr int page_margin = 12;
inline constexpr int page_gap = 8;

/// The height of a box of one line, pixels.
inline constexpr int box_height = 30;
/// Beside parts that lie in another layout's air already.
inline constexpr QMargins no_margins;

struct PageParts {
    QHBoxLayout* head;
    QVBoxLayout* body; ///< stretches
    QHBoxLayout* foot;
};

/// Lays the parts into a page that has no layout yet.
PageParts lay_parts(QWidget& page);

/// Where a page's content stands in the middle of the window: the most room it takes, and the air around it, pixels.
inline constexpr int content_width = 1180;
inline constexpr int content_margin = 28;

/// A line across its parent's layout, so many pixels high.
QWidget* rule(QWidget* parent, QRgb colour, int height);

/// The line below a heading.
QWidget* page_rule(QWidget* parent);

/// Lays the row's controls side by side, without air around them.
QHBoxLayout* row_in(QWidget* row);

/// The title of a page as a heading.
QWidget* page_heading(QStringView caption, QWidget* parent);

/// Paints the words before this returns, so that they are seen while the work goes on; no event is let in. The label
/// must lie in a layout.
void show_at_once(QLabel& label, const QString& text);

} // namespace ui
