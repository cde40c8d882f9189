#pragma once

// Pages on a painter: what PrintSurface stands for on a printer, in a PDF file and on the screen alike.

#include "reports/pages/print_surface.h"

#include <QPainter>
#include <vector>

class QPagedPaintDevice;

namespace ui {

/// Paints on a painter that stands on a page already. Used as it is for the preview, whose painter is scaled.
class PainterSurface : public reports::PrintSurface {
public:
    /// `margin` is what the printer can't print on; the painter's own origin is the paper's corner. The painter must
    /// outlive the surface; while it is inactive, painting does nothing.
    explicit PainterSurface(QPainter& painter, reports::Place margin = {}) : m_painter(painter), m_margin(margin) {}

    reports::Place margin() const override { return m_margin; }
    void new_page() override {}
    void set_font(QStringView family, double size, reports::Weight weight) override;
    void text(reports::Place place, const QString& text) override;
    void line(reports::Place from, reports::Place to, int width) override;
    /// Completes the page; the painter goes on.
    bool end() override;

protected:
    /// Lines wait until the page is complete, since many at once are cheaper than one by one.
    void draw_waiting_lines();

private:
    double pixels(double mm) const;
    QPointF point(reports::Place place) const;

    QPainter& m_painter;
    reports::Place m_margin;
    double m_ascent = 0; ///< pixels from the top of a text to its base line
    int m_line_width = 0;
    std::vector<QLineF> m_lines;
};

/// A4 in this orientation. The margins stay as they are.
void set_paper(QPagedPaintDevice& device, reports::Orientation orientation);

/// The fonts that stand for the one asked for, the one asked for first.
QStringList print_families(QStringView family);

} // namespace ui
