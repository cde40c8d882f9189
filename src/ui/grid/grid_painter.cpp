#include "ui/grid/grid_painter.h"

#include "ui/parts/colours.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

namespace ui {

namespace {

constexpr int side_margin = 3;
constexpr double narrowest = 0.78; ///< text is condensed as far as this before it is cut

QColor colour(base::Rgb rgb) {
    return QColor(rgb.red, rgb.green, rgb.blue);
}

struct CellPlace {
    base::Cell cell;
    QRect rect;
    bool heading; ///< in a fixed row
    bool fixed;   ///< in a fixed row or column
};

class Painting {
public:
    Painting(QPainter& painter, const base::Sheet& sheet, const GridStyle& style)
        : m_painter(painter), m_sheet(sheet), m_style(style), m_cursor(shown_cursor(sheet)) {}

    void cell(const CellPlace& place) {
        const base::CellLook look = m_sheet.Look(place.cell.row, place.cell.col);
        m_painter.fillRect(place.rect, look.back ? colour(*look.back) : QColor::fromRgb(own_ground(place)));
        lines(place);
        const QString& content = m_sheet(place.cell.row, place.cell.col);
        m_painter.setPen(look.fore ? colour(*look.fore) : QColor::fromRgb(own_colour(place, content)));
        text(place, content.isEmpty() ? look.stand_in : content);
        if (look.dot)
            dot(place.rect);
    }

    /// The heading band goes on beside the last column.
    void band_beside(const Span& row, int from, int to) {
        if (from >= to)
            return;
        m_painter.fillRect(from, row.start, to - from, row.size, QColor::fromRgb(colours::heading));
        m_painter.fillRect(from, row.end() - 1, to - from, 1, QColor::fromRgb(colours::heading_line));
    }

    void frame_in_hand(const GridGeometry& geometry) {
        if (!m_cursor || m_style.row_cursor)
            return;
        const QRect rect = geometry.rect(*m_cursor);
        if (rect.isEmpty())
            return;
        m_painter.setPen(QPen(QColor::fromRgb(m_style.focused ? colours::accent : colours::heading_line), 2));
        m_painter.drawRect(rect.adjusted(0, 0, -1, -1));
    }

    /// Where no cell in view is in hand, as in an empty list, the whole grid shows that it has the keyboard.
    void frame_of_grid(const GridGeometry& geometry) {
        if (!m_style.focused || is_in_view(geometry))
            return;
        m_painter.setPen(QPen(QColor::fromRgb(colours::accent), 2));
        m_painter.drawRect(QRect(QPoint(), geometry.view()).adjusted(1, 1, -1, -1));
    }

private:
    bool is_in_view(const GridGeometry& geometry) const {
        if (!m_cursor)
            return false;
        const auto of_cursor = [row = m_cursor->row](const Span& span) { return span.index == row; };
        return m_style.row_cursor ? std::ranges::any_of(geometry.rows(), of_cursor)
                                  : !geometry.rect(*m_cursor).isEmpty();
    }

    QRgb own_ground(const CellPlace& place) const {
        if (place.heading)
            return !m_style.row_cursor && m_cursor && m_cursor->col == place.cell.col ? colours::heading_in_hand
                                                                                      : colours::heading;
        const bool row_of_cursor = m_cursor && m_cursor->row == place.cell.row;
        if (m_style.row_cursor && row_of_cursor)
            return m_style.focused ? colours::row_in_hand : colours::row_in_hand_idle;
        if (place.fixed)
            return row_of_cursor ? colours::heading_in_hand : colours::fixed;
        return colours::ground;
    }

    static QRgb own_colour(const CellPlace& place, const QString& content) {
        if (content.isEmpty())
            return colours::stand_in;
        return place.heading ? colours::heading_text : colours::text;
    }

    void lines(const CellPlace& place) {
        const QRect& r = place.rect;
        m_painter.fillRect(r.right(), r.top(), 1, r.height(),
            QColor::fromRgb(is_last_fixed_col(place) || place.heading ? colours::heading_line : colours::line));
        m_painter.fillRect(
            r.left(), r.bottom(), r.width(), 1, QColor::fromRgb(place.heading ? colours::heading_line : colours::line));
    }

    bool is_last_fixed_col(const CellPlace& place) const { return place.cell.col == m_sheet.FixedCols() - 1; }

    void text(const CellPlace& place, const QString& content) {
        if (content.isEmpty())
            return;
        set_font_for(place.rect.height());
        const QRect room = place.rect.adjusted(side_margin, 0, -side_margin - 1, -1);
        draw_fitting(m_painter, room, horizontal(place) | Qt::AlignVCenter, content);
    }

    void dot(const QRect& rect) {
        const int size = rect.height() / 3;
        m_painter.save();
        m_painter.setRenderHint(QPainter::Antialiasing);
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(QColor::fromRgb(colours::waiting));
        m_painter.drawEllipse(QRect(rect.right() - 2 * side_margin - size, rect.center().y() - size / 2, size, size));
        m_painter.restore();
    }

    Qt::Alignment horizontal(const CellPlace& place) const {
        switch (m_sheet.CellAlignment(place.cell.row, place.cell.col)) {
        case base::Alignment::Center:
            return Qt::AlignHCenter;
        case base::Alignment::Right:
            return Qt::AlignRight;
        case base::Alignment::Left:
            break;
        }
        return Qt::AlignLeft;
    }

    void set_font_for(int row_height) {
        if (row_height == m_font_height)
            return;
        m_font_height = row_height;
        m_painter.setFont(cell_font(m_style.font, row_height));
    }

    QPainter& m_painter;
    const base::Sheet& m_sheet;
    const GridStyle& m_style;
    std::optional<base::Cell> m_cursor;
    int m_font_height = -1;
};

} // namespace

std::optional<base::Cell> shown_cursor(const base::Sheet& sheet) {
    base::Cell cursor{sheet.Row(), sheet.Col()};
    if (!sheet.Contains(cursor.row, cursor.col) || cursor.row < sheet.FixedRows())
        return {};
    while (cursor.row < sheet.Rows() && sheet.RowHeight(cursor.row) == 0)
        ++cursor.row;
    if (cursor.row == sheet.Rows())
        return {};
    return cursor;
}

QFont cell_font(QFont font, int row_height) {
    font.setPixelSize(std::clamp(static_cast<int>(row_height * 0.72), 9, 22));
    return font;
}

void draw_fitting(QPainter& painter, const QRect& room, Qt::Alignment alignment, const QString& text) {
    const int flags = static_cast<int>(alignment) | Qt::TextSingleLine | Qt::TextDontClip;
    const int width = painter.fontMetrics().horizontalAdvance(text);
    if (width <= room.width()) {
        painter.drawText(room, flags, text);
        return;
    }
    const double factor = std::max(narrowest, double(room.width()) / width);
    const int room_before_scaling = static_cast<int>(room.width() / factor) + 1;
    painter.save();
    painter.translate(room.topLeft());
    painter.scale(factor, 1.0);
    painter.drawText(QRect(0, 0, room_before_scaling, room.height()), flags,
        painter.fontMetrics().elidedText(text, Qt::ElideRight, room_before_scaling));
    painter.restore();
}

bool is_cut(const QString& text, const QFont& font, int width) {
    const int room = width - 2 * side_margin - 1;
    return QFontMetrics(font).horizontalAdvance(text) * narrowest > room;
}

void paint_grid(QPainter& painter, const base::Sheet& sheet, const GridGeometry& geometry, const GridStyle& style) {
    painter.fillRect(QRect(QPoint(), geometry.view()), QColor::fromRgb(colours::ground));
    Painting painting(painter, sheet, style);
    const QList<Span> cols = geometry.cols();
    const int behind = cols.isEmpty() ? 0 : cols.last().end();
    for (const Span& row : geometry.rows()) {
        const bool heading = row.index < sheet.FixedRows();
        if (heading)
            painting.band_beside(row, behind, geometry.view().width());
        for (const Span& col : cols)
            painting.cell({{row.index, col.index}, QRect(col.start, row.start, col.size, row.size), heading,
                heading || col.index < sheet.FixedCols()});
    }
    painting.frame_in_hand(geometry);
    painting.frame_of_grid(geometry);
}

} // namespace ui
