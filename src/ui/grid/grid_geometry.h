#pragma once

// Where the cells of a sheet lie in a view. Pure arithmetic over the sheet's sizes, without a widget.
//
// The fixed rows and columns stand at the edge; behind them come the scrolled ones from TopRow and LeftCol on, always
// by whole rows and columns. Twips become pixels cell by cell, so that cells abut without gaps. What has size 0 is
// skipped. The cost follows what is in view, not what is in the sheet.

#include "base/sheet.h"

#include <QList>
#include <QRect>
#include <optional>

namespace ui {

/// A row or column in view: its index, its first pixel and its size in pixels (above 0).
struct Span {
    int index = 0;
    int start = 0;
    int size = 0;
    int end() const { return start + size; } ///< the first pixel behind it
};

class GridGeometry {
public:
    /// `pixels_per_twip` is dpi / 1440; `view` in pixels.
    GridGeometry(const base::Sheet& sheet, double pixels_per_twip, QSize view);

    QSize view() const { return m_view; }
    int pixels(int twips) const; ///< rounded to the nearest

    /// What is in view, the last one possibly cut by the edge.
    QList<Span> rows() const;
    QList<Span> cols() const;

    /// The cell's place; empty if it is hidden or scrolled out of view.
    QRect rect(base::Cell cell) const;
    /// The cell under a point; nothing beside the cells.
    std::optional<base::Cell> cell_at(QPoint point) const;

    /// The largest TopRow and LeftCol that leave no room behind the last row or column; the fixed count if all fits.
    int last_top() const;
    int last_left() const;

    /// The TopRow and LeftCol, nearest to the present ones, that show the cell whole. Fixed cells are always in view.
    int top_for(int row) const;
    int left_for(int col) const;

private:
    struct Axis;
    Axis row_axis() const;
    Axis col_axis() const;

    const base::Sheet& m_sheet;
    double m_scale;
    QSize m_view;
};

} // namespace ui
