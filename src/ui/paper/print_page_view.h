#pragma once

// One page on the screen: the white paper with what will be printed on it, as large as the zoom says.

#include "reports/printing/rovena_print.h"

#include <QWidget>

namespace ui {

class PrintPageView : public QWidget {
public:
    /// A page of these is shown, at first the first one. There must be one, and they must outlive the view.
    PrintPageView(const reports::Pages& pages, reports::Place offset, reports::Orientation orientation,
        QWidget* parent = nullptr);

    /// Index of the page shown, held within the pages.
    int page() const { return m_page; }
    void set_page(int page);

    /// Screen pixels for a pixel of paper at the screen's own resolution; 1 is the size on paper. Above 0.
    double zoom() const { return m_zoom; }
    void set_zoom(double zoom);
    /// The zoom at which the whole page fits into this room of pixels.
    double zoom_to_fit(QSize room) const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QSizeF paper() const; ///< in pixels of the screen at zoom 1

    const reports::Pages& m_pages;
    reports::Place m_offset;
    reports::Orientation m_orientation;
    int m_page = 0;
    double m_zoom = 1;
};

} // namespace ui
