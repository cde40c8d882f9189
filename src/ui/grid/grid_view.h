#pragma once

// GridView: shows a sheet. The sheet is the form's; the view reads its cells, sizes and looks, moves its cursor on a
// click or an arrow key and keeps TopRow and LeftCol with the scroll bars. It never edits a cell: a box is laid over
// it.
//
// After a change of the sheet the page calls refresh(). Only the cells in view are looked at, whatever the sheet holds.

#include "base/sheet.h"
#include "ui/grid/grid_geometry.h"
#include "ui/grid/grid_reader.h"

#include <QAbstractScrollArea>

namespace ui {

/// How the cell in hand is shown.
enum class CursorStyle {
    Cell, ///< a frame around it, its headings tinted
    Row,  ///< the whole row tinted: a list
};

class GridView : public QAbstractScrollArea {
    Q_OBJECT
public:
    /// The sheet must outlive the view.
    explicit GridView(base::Sheet& sheet, CursorStyle style, QWidget* parent = nullptr);

    base::Sheet& sheet() { return m_sheet; }
    CursorStyle cursor_style() const { return m_style; }

    /// Takes over what changed in the sheet: sizes, cursor, cells, TopRow and LeftCol (held within what can scroll).
    void refresh();

    /// Shows everything larger by this factor from the next refresh() on; 1 is the size that the sheet says.
    void set_zoom(double zoom);

    /// Makes a column of the sheet wider by so many pixels at the present zoom, rounded down; nothing for 0 and below.
    void widen(int col, int pixels);

    /// Scrolls as little as shows the cell whole, without a signal.
    void show_cell(base::Cell cell);

    /// The cell's place in the viewport; empty if hidden or scrolled away.
    QRect cell_rect(base::Cell cell) const { return geometry_in(viewport()->size()).rect(cell); }

    /// The cell at a point of the viewport; nothing beside the cells.
    std::optional<base::Cell> cell_at(QPoint point) const { return geometry_in(viewport()->size()).cell_at(point); }

    /// The view's size in twips, as the sheet's VisibleRows() and VisibleCols() take it.
    int view_height() const;
    int view_width() const;

    /// The height in pixels of a row of the usual height, before any zoom.
    int own_row_height() const;
    /// The height in pixels at which all rows are in view, with or without a horizontal scroll bar.
    int full_height(bool with_scroll_bar) const;
    /// The width in pixels of all columns, with or without a vertical scroll bar.
    int full_width(bool with_scroll_bar) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The person chose a cell that takes the cursor (click, Space or Enter); the sheet's cursor stands on it. A click
    /// into a row's fixed columns, as on its number, chooses the row's first cell.
    void cell_clicked();
    /// A click on a column's heading or beside the cells; the cursor stays.
    void edge_clicked();
    /// The person scrolled; TopRow and LeftCol are those in view.
    void scrolled();
    /// A key that doesn't move the cursor: a Qt::Key and the text it stands for.
    void key_pressed(int key, const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    bool viewportEvent(QEvent* event) override;

private:
    GridGeometry geometry_in(QSize view) const;
    double pixels_per_twip() const;
    QString tip_of(base::Cell cell, const QRect& rect) const;
    bool move_cursor(int key);
    int first_col() const;
    void update_scroll_bars();
    void show_and_tell();

    base::Sheet& m_sheet;
    CursorStyle m_style;
    GridTeller m_teller;
    double m_zoom = 1.0;
    bool m_following_sheet = false; ///< the scroll bars are being set from the sheet, not by the person
};

} // namespace ui
