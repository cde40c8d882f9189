#include "ui/paper/print_page_view.h"

#include "ui/paper/printer_surface.h"
#include "ui/parts/colours.h"

#include <QPageSize>
#include <algorithm>

namespace ui {

PrintPageView::PrintPageView(
    const reports::Pages& pages, reports::Place offset, reports::Orientation orientation, QWidget* parent)
    : QWidget(parent), m_pages(pages), m_offset(offset), m_orientation(orientation) {
    set_zoom(1);
}

void PrintPageView::set_page(int page) {
    m_page = std::clamp(page, 0, int(m_pages.size()) - 1);
    update();
}

void PrintPageView::set_zoom(double zoom) {
    m_zoom = zoom;
    setFixedSize((paper() * zoom).toSize());
    update();
}

double PrintPageView::zoom_to_fit(QSize room) const {
    return std::min(room.width() / paper().width(), room.height() / paper().height());
}

QSizeF PrintPageView::paper() const {
    const QSizeF size = QPageSize(QPageSize::A4).size(QPageSize::Millimeter) * (logicalDpiX() / reports::mm_per_inch);
    return m_orientation == reports::Orientation::Portrait ? size : size.transposed();
}

void PrintPageView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.fillRect(rect(), Qt::white);
    painter.setPen(QColor::fromRgb(colours::heading_line));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.scale(m_zoom, m_zoom);
    painter.setPen(Qt::black);
    PainterSurface surface(painter);
    reports::paint(m_pages[size_t(m_page)], m_offset, surface);
    surface.end();
}

} // namespace ui
