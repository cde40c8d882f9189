#include "ui/grid/grid_view.h"

#include "base/twips.h"
#include "ui/grid/grid_painter.h"

#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <functional>

namespace ui {

namespace {

/// The nearest index in the direction of `step` with a size; the present one if there is none.
int neighbour(int index, int step, int first, int count, const std::function<int(int)>& size) {
    for (int i = index + step; i >= first && i < count; i += step)
        if (size(i) > 0)
            return i;
    return index;
}

struct KeyStep {
    int key;
    int rows;
    int cols;
};

constexpr KeyStep key_steps[] = {
    {Qt::Key_Up, -1, 0},
    {Qt::Key_Down, 1, 0},
    {Qt::Key_Left, 0, -1},
    {Qt::Key_Right, 0, 1},
};

const KeyStep* step_of(int key) {
    const auto at = std::ranges::find(key_steps, key, &KeyStep::key);
    return at == std::end(key_steps) ? nullptr : at;
}

/// What rounding took from the rows or columns is given back: those that just fit in pixels fit in twips as well.
template <typename Size>
int twips_of(int room, const GridGeometry& geometry, double scale, int count, Size size) {
    double lost = 0;
    for (int i = 0; i < count; ++i)
        lost += size(i) * scale - geometry.pixels(size(i));
    return static_cast<int>(std::ceil((room + std::max(0.0, lost)) / scale));
}

} // namespace

GridView::GridView(base::Sheet& sheet, CursorStyle style, QWidget* parent)
    : QAbstractScrollArea(parent), m_sheet(sheet), m_style(style) {
    make_grids_readable();
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::StyledPanel);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    horizontalScrollBar()->setSingleStep(1);
    verticalScrollBar()->setSingleStep(1);
    update_scroll_bars();
}

GridGeometry GridView::geometry_in(QSize view) const {
    return {m_sheet, pixels_per_twip(), view};
}

double GridView::pixels_per_twip() const {
    return m_zoom * logicalDpiX() / base::twips_an_inch;
}

void GridView::set_zoom(double zoom) {
    m_zoom = zoom;
}

void GridView::widen(int col, int pixels) {
    if (pixels > 0)
        m_sheet.SetColWidth(
            col, static_cast<int>((geometry_in({}).pixels(m_sheet.ColWidth(col)) + pixels) / pixels_per_twip()));
}

void GridView::refresh() {
    update_scroll_bars();
    show_and_tell();
}

void GridView::show_and_tell() {
    viewport()->update();
    m_teller.tell(*this);
}

void GridView::update_scroll_bars() {
    // Where everything fits into the view without bars, none is shown, even if one stands there now.
    const GridGeometry bare = geometry_in(maximumViewportSize());
    const bool all_fits = bare.last_top() <= m_sheet.FixedRows() && bare.last_left() <= m_sheet.FixedCols();
    const GridGeometry geometry = all_fits ? bare : geometry_in(viewport()->size());
    const QScopedValueRollback following(m_following_sheet, true);
    const int top = m_sheet.TopRow(), left = m_sheet.LeftCol();

    verticalScrollBar()->setPageStep(std::max<int>(1, static_cast<int>(geometry.rows().size()) - m_sheet.FixedRows()));
    verticalScrollBar()->setRange(m_sheet.FixedRows(), geometry.last_top());
    verticalScrollBar()->setValue(top);
    horizontalScrollBar()->setPageStep(
        std::max<int>(1, static_cast<int>(geometry.cols().size()) - m_sheet.FixedCols()));
    horizontalScrollBar()->setRange(m_sheet.FixedCols(), geometry.last_left());
    horizontalScrollBar()->setValue(left);
    m_sheet.SetTopLeft(verticalScrollBar()->value(), horizontalScrollBar()->value());
}

void GridView::show_cell(base::Cell cell) {
    if (!m_sheet.Contains(cell.row, cell.col))
        return;
    const GridGeometry geometry = geometry_in(viewport()->size());
    m_sheet.SetTopLeft(geometry.top_for(cell.row), geometry.left_for(cell.col));
    refresh();
}

int GridView::view_height() const {
    const auto height = [this](int row) { return m_sheet.RowHeight(row); };
    return twips_of(viewport()->height(), geometry_in({}), pixels_per_twip(), m_sheet.Rows(), height);
}

int GridView::view_width() const {
    const auto width = [this](int col) { return m_sheet.ColWidth(col); };
    return twips_of(viewport()->width(), geometry_in({}), pixels_per_twip(), m_sheet.Cols(), width);
}

int GridView::own_row_height() const {
    return base::Sheet::default_row_height * logicalDpiY() / base::twips_an_inch;
}

int GridView::full_height(bool with_scroll_bar) const {
    const GridGeometry geometry = geometry_in({});
    int height = 2 * frameWidth() + (with_scroll_bar ? horizontalScrollBar()->sizeHint().height() : 0);
    for (int row = 0; row < m_sheet.Rows(); ++row)
        height += geometry.pixels(m_sheet.RowHeight(row));
    return height;
}

int GridView::full_width(bool with_scroll_bar) const {
    const GridGeometry geometry = geometry_in({});
    int width = 2 * frameWidth() + (with_scroll_bar ? verticalScrollBar()->sizeHint().width() : 0);
    for (int col = 0; col < m_sheet.Cols(); ++col)
        width += geometry.pixels(m_sheet.ColWidth(col));
    return width;
}

QSize GridView::sizeHint() const {
    return {std::min(full_width(true), 1200), std::min(full_height(true), 700)};
}

QSize GridView::minimumSizeHint() const {
    return {120, 40};
}

void GridView::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    const bool in_hand = hasFocus() || isAncestorOf(QApplication::focusWidget());
    paint_grid(painter, m_sheet, geometry_in(viewport()->size()), {m_style == CursorStyle::Row, in_hand, font()});
}

void GridView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    update_scroll_bars();
}

void GridView::scrollContentsBy(int, int) {
    m_sheet.SetTopLeft(verticalScrollBar()->value(), horizontalScrollBar()->value());
    viewport()->update();
    if (!m_following_sheet)
        Q_EMIT scrolled();
}

void GridView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    const auto cell = cell_at(event->position().toPoint());
    if (!cell || cell->row < m_sheet.FixedRows()) {
        Q_EMIT edge_clicked();
        return;
    }
    m_sheet.SetCursor({cell->row, cell->col < m_sheet.FixedCols() ? first_col() : cell->col});
    show_and_tell();
    Q_EMIT cell_clicked();
}

/// The first column in sight that takes the cursor; the present one if there is none.
int GridView::first_col() const {
    const int before = m_sheet.FixedCols() - 1;
    const int first =
        neighbour(before, 1, m_sheet.FixedCols(), m_sheet.Cols(), [this](int col) { return m_sheet.ColWidth(col); });
    return first == before ? m_sheet.Col() : first;
}

bool GridView::move_cursor(int key) {
    const KeyStep* step = step_of(key);
    if (!step)
        return false;
    base::Cell to{m_sheet.Row(), m_sheet.Col()};
    if (step->rows != 0)
        to.row = neighbour(to.row, step->rows, m_sheet.FixedRows(), m_sheet.Rows(),
            [this](int row) { return m_sheet.RowHeight(row); });
    else
        to.col = neighbour(
            to.col, step->cols, m_sheet.FixedCols(), m_sheet.Cols(), [this](int col) { return m_sheet.ColWidth(col); });
    m_sheet.SetCursor(to);
    show_cell(to);
    return true;
}

void GridView::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (move_cursor(key))
        return;
    if (key == Qt::Key_Escape)
        return event->ignore(); // leaves a dialog, wherever in it the keyboard stands
    if (key == Qt::Key_PageDown || key == Qt::Key_PageUp) {
        verticalScrollBar()->triggerAction(
            key == Qt::Key_PageDown ? QAbstractSlider::SliderPageStepAdd : QAbstractSlider::SliderPageStepSub);
        return;
    }
    const bool chosen = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
    if (chosen && m_sheet.Row() >= m_sheet.FixedRows())
        Q_EMIT cell_clicked();
    else
        Q_EMIT key_pressed(key, event->text());
}

void GridView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void GridView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

bool GridView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QAbstractScrollArea::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const GridGeometry geometry = geometry_in(viewport()->size());
    const auto cell = geometry.cell_at(help->pos());
    const QRect rect = cell ? geometry.rect(*cell) : QRect();
    const QString tip = cell ? tip_of(*cell, rect) : QString();
    if (tip.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), tip, viewport(), rect);
    return true;
}

/// What the sheet says of the cell; else its text where that can't be read whole.
QString GridView::tip_of(base::Cell cell, const QRect& rect) const {
    const QString& text = m_sheet(cell.row, cell.col);
    if (const QString tip = m_sheet.Look(cell.row, cell.col).tip; !tip.isEmpty())
        return tip;
    return is_cut(text, cell_font(font(), rect.height()), rect.width()) ? text : QString();
}

} // namespace ui
