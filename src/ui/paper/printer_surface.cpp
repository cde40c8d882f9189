#include "ui/paper/printer_surface.h"

#include "base/literals.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPagedPaintDevice>
#include <QPen>

namespace ui {

using namespace base;
using reports::mm_per_inch;
using reports::Place;
using reports::points_per_inch;

namespace {

constexpr double line_units_per_inch = 600;

/// Of the square that a full-width character fills, what lies above the base line: as the Mincho faces have it. Taken
/// for every font, so that a text stands at the same height in whichever one is there.
constexpr double share_above_base = 0.86;

} // namespace

QStringList print_families(QStringView family) {
    return {family.toString(), u"MS Mincho"_s, u"IPAMincho"_s, u"IPA明朝"_s, u"Noto Serif CJK JP"_s, u"serif"_s};
}

/// A printer that couldn't be opened leaves the painter without a device; its job paints into nothing until its end.
double PainterSurface::pixels(double mm) const {
    return m_painter.isActive() ? mm * m_painter.device()->logicalDpiX() / mm_per_inch : 0;
}

QPointF PainterSurface::point(Place place) const {
    return {pixels(place.x + m_margin.x), pixels(place.y + m_margin.y)};
}

void PainterSurface::set_font(QStringView family, double size, reports::Weight weight) {
    QFont font;
    font.setFamilies(print_families(family));
    font.setPointSizeF(size);
    font.setBold(weight == reports::Weight::Bold);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setKerning(false);
    m_painter.setFont(font);
    m_ascent = pixels(size / points_per_inch * mm_per_inch * share_above_base);
}

void PainterSurface::text(Place place, const QString& text) {
    m_painter.drawText(point(place) + QPointF(0, m_ascent), text);
}

void PainterSurface::line(Place from, Place to, int width) {
    if (width != m_line_width)
        draw_waiting_lines();
    m_line_width = width;
    m_lines.emplace_back(point(from), point(to));
}

void PainterSurface::draw_waiting_lines() {
    if (m_lines.empty())
        return;
    QPen pen(Qt::black, pixels(m_line_width / line_units_per_inch * mm_per_inch));
    pen.setCapStyle(Qt::SquareCap); // corners are whole
    m_painter.setPen(pen);
    m_painter.drawLines(m_lines.data(), int(m_lines.size()));
    m_painter.setPen(Qt::black);
    m_lines.clear();
}

bool PainterSurface::end() {
    draw_waiting_lines();
    return true;
}

// One by one, since the print engine of a real printer passes over a layout that is set as a whole.
void set_paper(QPagedPaintDevice& device, reports::Orientation orientation) {
    const bool portrait = orientation == reports::Orientation::Portrait;
    device.setPageSize(QPageSize(QPageSize::A4));
    device.setPageOrientation(portrait ? QPageLayout::Portrait : QPageLayout::Landscape);
}

} // namespace ui
