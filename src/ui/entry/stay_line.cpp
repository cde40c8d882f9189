#include "ui/entry/stay_line.h"

#include "ui/parts/colours.h"

#include <QPainter>
#include <algorithm>

namespace ui {

using namespace base;

namespace {

constexpr int letters = 10; ///< pixels
constexpr int edge = 8;     ///< beside the line, for half an hour's figure
constexpr int hours_height = 14;
constexpr int lane_height = 14;
constexpr int lane_gap = 3;

} // namespace

void StayLine::show_day(const entry::Why& why) {
    m_bars = {{why.stay.clockIn, why.stay.clockOut, QColor::fromRgb(colours::accent), 0}};
    m_lanes = 1;
    for (const entry::WhyBand& band : why.bands) {
        QColor colour = colours::of_category(band.place);
        if (!band.remark.isEmpty())
            colour.setAlphaF(0.35F);
        m_bars << Bar{band.start, band.end, colour, lane_for(band)};
        m_lanes = std::max(m_lanes, m_bars.last().lane + 1);
    }
    updateGeometry();
    update();
}

/// The first lane below the stay in which the band meets no other.
int StayLine::lane_for(const entry::WhyBand& band) const {
    int lane = 1;
    const auto taken = [&](const Bar& bar) { return bar.lane == lane && bar.start < band.end && band.start < bar.end; };
    while (std::ranges::any_of(m_bars, taken))
        ++lane;
    return lane;
}

QSize StayLine::sizeHint() const {
    return {200, hours_height + m_lanes * (lane_height + lane_gap) + lane_gap};
}

int StayLine::hours() const {
    const bool past_midnight = std::ranges::any_of(m_bars, [](const Bar& bar) { return bar.end > minutes(24 * 60); });
    return past_midnight ? 48 : 24;
}

QRectF StayLine::place(const Bar& bar) const {
    const double a_minute = double(width() - 2 * edge) / (hours() * 60);
    const int top = hours_height + lane_gap + bar.lane * (lane_height + lane_gap);
    const double length = std::max<double>(1, double((bar.end - bar.start).count()) * a_minute);
    return {edge + double(bar.start.count()) * a_minute, double(top), length, double(lane_height)};
}

void StayLine::paint_hours(QPainter& painter) const {
    const int step = hours() / 8;
    for (int hour = 0; hour <= hours(); hour += step) {
        const int x = edge + hour * (width() - 2 * edge) / hours();
        painter.setPen(QColor::fromRgb(colours::line));
        painter.drawLine(x, hours_height, x, height());
        painter.setPen(QColor::fromRgb(colours::quiet_text));
        painter.drawText(QRect(x - 2 * edge, 0, 4 * edge, hours_height), Qt::AlignCenter, QString::number(hour));
    }
}

void StayLine::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QFont font = painter.font();
    font.setPixelSize(letters);
    painter.setFont(font);
    paint_hours(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    for (const Bar& bar : m_bars) {
        painter.setBrush(bar.colour);
        painter.drawRoundedRect(place(bar), 3, 3);
    }
}

} // namespace ui
