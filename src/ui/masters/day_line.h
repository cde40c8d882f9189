#pragma once

// DayLine: the bands of a day on a line from 0:00 to 24:00, coloured by category. Where bands overlap a hatched strip
// lies under them, and a gap is a hatched place on the line. Below stands what the colours mean.

#include "common/day_picture.h"

#include <QStringList>
#include <QWidget>

namespace ui {

class DayLine : public QWidget {
    Q_OBJECT
public:
    explicit DayLine(QWidget* parent);

    /// `names` are those of the categories in the order of the master, which is that of Segment::colour.
    void show_day(const common::DayPicture& day, const QStringList& names);

    QSize sizeHint() const override { return {600, minimumHeight()}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRectF place(const common::Span& span, double top, double height) const;
    void draw_hours(QPainter& painter) const;
    void draw_segment(QPainter& painter, const common::Segment& segment) const;
    void draw_spans(QPainter& painter) const;
    void draw_legend(QPainter& painter) const;

    common::DayPicture m_day;
    QStringList m_names;
};

} // namespace ui
