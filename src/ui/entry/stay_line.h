#pragma once

// A day drawn as a line of 24 hours, or of 48 where the stay or a band goes past midnight: the stay above, the bands of
// the weekday below it. Bands that overlap lie below each other.

#include "entry/why.h"

#include <QWidget>

namespace ui {

class StayLine : public QWidget {
    Q_OBJECT
public:
    explicit StayLine(QWidget* parent) : QWidget(parent) {}

    void show_day(const entry::Why& why); ///< keeps what it draws
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Bar {
        base::minutes start, end;
        QColor colour;
        int lane;
    };

    int hours() const;
    QRectF place(const Bar& bar) const;
    void paint_hours(QPainter& painter) const;
    int lane_for(const entry::WhyBand& band) const;

    QList<Bar> m_bars; ///< the stay first
    int m_lanes = 0;
};

} // namespace ui
