#pragma once

// The look of a grid: heading band, lines, cell colours, the cell in hand. One light style for every grid of the
// system, because the colours that the forms give to cells are made for a light ground.

#include "ui/grid/grid_geometry.h"

#include <QFont>

class QPainter;

namespace ui {

struct GridStyle {
    bool row_cursor = false; ///< tint the cursor's whole row instead of framing its cell
    bool focused = false;
    QFont font; ///< family and weight; the size follows the row height
};

/// Paints what the geometry has in view onto the painter, from the top left corner on.
void paint_grid(QPainter& painter, const base::Sheet& sheet, const GridGeometry& geometry, const GridStyle& style);

/// The font for a row of this height in pixels.
QFont cell_font(QFont font, int row_height);

/// Text in one line; where it doesn't fit, it is condensed a little before it is cut.
void draw_fitting(QPainter& painter, const QRect& room, Qt::Alignment alignment, const QString& text);

/// Whether the cell's text can't be read whole at its width, so that a tip should show it.
bool is_cut(const QString& text, const QFont& font, int width);

/// The cell at which the cursor is shown: the cursor, or below a hidden row the next one with a height; nothing if the
/// cursor stands on a heading or there is no such row.
std::optional<base::Cell> shown_cursor(const base::Sheet& sheet);

} // namespace ui
