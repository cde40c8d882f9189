#include "ui/masters/day_line.h"

#include "base/literals.h"
#include "ui/parts/colours.h"

#include <QPainter>
#include <algorithm>
#include <set>

namespace ui {

using namespace base;

namespace {

constexpr int day_minutes = 24 * 60;
constexpr int side = 16; ///< room for half an hour figure at either end
constexpr int figures_height = 18;
constexpr int bar_top = 22;
constexpr int bar_height = 30;
constexpr int overlap_top = bar_top + bar_height + 2;
constexpr int overlap_height = 7;
constexpr int legend_top = overlap_top + overlap_height + 8;
constexpr int legend_height = 20;
constexpr int swatch = 12;

constexpr QRgb overlap_colour = 0xffd0303c;
constexpr QRgb gap_colour = 0xff9a9eb2;

QString name_of(const QStringList& names, int place) {
    return place < 0 || place >= names.size() ? u"（勤務種類なし）"_s : names[place];
}

struct Meaning {
    QBrush brush;
    QString text;
};

QList<Meaning> meanings(const common::DayPicture& day, const QStringList& names) {
    std::set<int> places;
    for (const common::Segment& segment : day.segments)
        places.insert(segment.colour);
    QList<Meaning> all;
    for (const int place : places)
        all << Meaning{colours::of_category(place), name_of(names, place)};
    if (!day.overlaps.isEmpty())
        all << Meaning{{QColor::fromRgb(overlap_colour), Qt::BDiagPattern}, u"重なり"_s};
    if (!day.gaps.isEmpty())
        all << Meaning{{QColor::fromRgb(gap_colour), Qt::BDiagPattern}, u"空き"_s};
    return all;
}

} // namespace

DayLine::DayLine(QWidget* parent) : QWidget(parent) {
    setMinimumHeight(legend_top + legend_height);
}

void DayLine::show_day(const common::DayPicture& day, const QStringList& names) {
    m_day = day;
    m_names = names;
    update();
}

QRectF DayLine::place(const common::Span& span, double top, double height) const {
    const double a_minute = double(width() - 2 * side) / day_minutes;
    const double left = side + a_minute * double(span.start.count());
    return {left, top, side + a_minute * double(span.end.count()) - left, height};
}

void DayLine::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QFont small = font();
    small.setPixelSize(12);
    painter.setFont(small);
    draw_hours(painter);
    for (const common::Segment& segment : m_day.segments)
        draw_segment(painter, segment);
    draw_spans(painter);
    draw_legend(painter);
}

void DayLine::draw_hours(QPainter& painter) const {
    const QRectF line = place({minutes(0), minutes(day_minutes)}, bar_top, bar_height);
    painter.fillRect(line, QColor::fromRgb(colours::ground));
    for (int hour = 0; hour <= 24; ++hour) {
        const double x = place({minutes(hour * 60), minutes(hour * 60)}, 0, 0).left();
        painter.setPen(QColor::fromRgb(hour % 6 == 0 ? colours::heading_line : colours::line));
        painter.drawLine(QPointF(x, bar_top), QPointF(x, bar_top + bar_height));
        if (hour % 3 != 0)
            continue;
        painter.setPen(QColor::fromRgb(colours::quiet_text));
        painter.drawText(QRectF(x - 2 * side, 0, 4 * side, figures_height), Qt::AlignCenter, u"%1:00"_s.arg(hour));
    }
    painter.setPen(QColor::fromRgb(colours::heading_line));
    painter.drawRect(line);
}

/// A piece of the next day is paler. The number is the band's in the grid, 0 where it has none.
void DayLine::draw_segment(QPainter& painter, const common::Segment& segment) const {
    const QRectF bar = place(segment.span, bar_top + 3, bar_height - 6);
    QColor ground = colours::of_category(segment.colour);
    painter.setPen(ground.darker(130));
    ground.setAlpha(segment.next_day ? 120 : 255);
    painter.setBrush(ground);
    painter.drawRect(bar);
    painter.setBrush(Qt::NoBrush);
    const QString number = QString::number(segment.band);
    painter.setPen(QColor::fromRgb(colours::text));
    if (segment.band != 0 && painter.fontMetrics().horizontalAdvance(number) < bar.width())
        painter.drawText(bar, Qt::AlignCenter, number);
}

void DayLine::draw_spans(QPainter& painter) const {
    for (const common::Span& gap : m_day.gaps)
        painter.fillRect(place(gap, bar_top + 3, bar_height - 6), {QColor::fromRgb(gap_colour), Qt::BDiagPattern});
    for (const common::Span& overlap : m_day.overlaps) {
        const QRectF strip = place(overlap, overlap_top, overlap_height);
        painter.fillRect(strip, {QColor::fromRgb(overlap_colour), Qt::BDiagPattern});
        painter.setPen(QColor::fromRgb(overlap_colour));
        painter.drawRect(strip);
    }
}

void DayLine::draw_legend(QPainter& painter) const {
    double x = side;
    for (const Meaning& meaning : meanings(m_day, m_names)) {
        const QRectF square(x, legend_top + (legend_height - swatch) / 2.0, swatch, swatch);
        painter.fillRect(square, meaning.brush);
        painter.setPen(QColor::fromRgb(colours::quiet_text));
        painter.drawRect(square);
        const double room = std::min(160.0, width() - side - square.right() - 6);
        if (room <= 0)
            return;
        const QString text = painter.fontMetrics().elidedText(meaning.text, Qt::ElideRight, int(room));
        painter.setPen(QColor::fromRgb(colours::text));
        painter.drawText(
            QRectF(square.right() + 6, legend_top, room, legend_height), Qt::AlignLeft | Qt::AlignVCenter, text);
        x = square.right() + 6 + painter.fontMetrics().horizontalAdvance(text) + 18;
    }
}

} // namespace ui
