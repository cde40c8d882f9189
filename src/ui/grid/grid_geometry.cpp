#include "ui/grid/grid_geometry.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace ui {

/// Rows and columns follow the same arithmetic.
struct GridGeometry::Axis {
    int count;
    int fixed;
    int first; ///< the first scrolled one in view
    int view;
    std::function<int(int)> size;

    int sum(int from, int to) const {
        int total = 0;
        for (int i = from; i < to; ++i)
            total += size(i);
        return total;
    }

    QList<Span> spans() const {
        QList<Span> found;
        int start = 0;
        for (int i = 0; i < count && start < view; ++i) {
            if (i == fixed)
                i = std::max(first, fixed);
            if (i >= count)
                break;
            if (const int pixels = size(i); pixels > 0) {
                found.append({i, start, pixels});
                start += pixels;
            }
        }
        return found;
    }

    /// The first index from which everything up to and including `last` fits behind the fixed part.
    int first_that_shows(int last) const {
        int room = view - sum(0, fixed) - size(last);
        int index = last;
        while (index > fixed && size(index - 1) <= room)
            room -= size(--index);
        return index;
    }

    int last_visible() const {
        int last = count - 1;
        while (last > fixed && size(last) == 0)
            --last;
        return last;
    }

    int last_first() const { return count > fixed ? first_that_shows(last_visible()) : fixed; }

    int first_for(int index) const {
        if (index < fixed)
            return first;
        return std::clamp(first, first_that_shows(index), index);
    }
};

namespace {

const Span* find(const QList<Span>& spans, int index) {
    const auto at = std::ranges::find(spans, index, &Span::index);
    return at == spans.end() ? nullptr : &*at;
}

const Span* under(const QList<Span>& spans, int pixel) {
    const auto at = std::ranges::find_if(spans, [pixel](const Span& s) { return pixel >= s.start && pixel < s.end(); });
    return at == spans.end() ? nullptr : &*at;
}

} // namespace

GridGeometry::GridGeometry(const base::Sheet& sheet, double pixels_per_twip, QSize view)
    : m_sheet(sheet), m_scale(pixels_per_twip), m_view(view) {}

int GridGeometry::pixels(int twips) const {
    return static_cast<int>(std::lround(twips * m_scale));
}

GridGeometry::Axis GridGeometry::row_axis() const {
    return {m_sheet.Rows(), m_sheet.FixedRows(), std::max(m_sheet.TopRow(), m_sheet.FixedRows()), m_view.height(),
        [this](int row) { return pixels(m_sheet.RowHeight(row)); }};
}

GridGeometry::Axis GridGeometry::col_axis() const {
    return {m_sheet.Cols(), m_sheet.FixedCols(), std::max(m_sheet.LeftCol(), m_sheet.FixedCols()), m_view.width(),
        [this](int col) { return pixels(m_sheet.ColWidth(col)); }};
}

QList<Span> GridGeometry::rows() const {
    return row_axis().spans();
}

QList<Span> GridGeometry::cols() const {
    return col_axis().spans();
}

QRect GridGeometry::rect(base::Cell cell) const {
    const QList<Span> all_rows = rows(), all_cols = cols();
    const Span* row = find(all_rows, cell.row);
    const Span* col = find(all_cols, cell.col);
    return row && col ? QRect(col->start, row->start, col->size, row->size) : QRect();
}

std::optional<base::Cell> GridGeometry::cell_at(QPoint point) const {
    const QList<Span> all_rows = rows(), all_cols = cols();
    const Span* row = under(all_rows, point.y());
    const Span* col = under(all_cols, point.x());
    if (!row || !col)
        return {};
    return base::Cell{row->index, col->index};
}

int GridGeometry::last_top() const {
    return row_axis().last_first();
}

int GridGeometry::last_left() const {
    return col_axis().last_first();
}

int GridGeometry::top_for(int row) const {
    return row_axis().first_for(row);
}

int GridGeometry::left_for(int col) const {
    return col_axis().first_for(col);
}

} // namespace ui
