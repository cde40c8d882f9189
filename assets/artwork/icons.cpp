#include "icons.h"

#include <array>
#include <cmath>
#include <initializer_list>
#include <numbers>

namespace artwork {

namespace {

void polyline(QPainterPath& path, std::initializer_list<QPointF> points) {
    path.moveTo(*points.begin());
    for (const QPointF& point : points)
        path.lineTo(point);
}

void polygon(QPainterPath& path, std::initializer_list<QPointF> points) {
    polyline(path, points);
    path.closeSubpath();
}

void circle(QPainterPath& path, QPointF centre, double radius) {
    path.addEllipse(centre, radius, radius);
}

void box(QPainterPath& path, double left, double top, double width, double height, double radius = 2) {
    path.addRoundedRect(QRectF(left, top, width, height), radius, radius);
}

QPointF on_circle(QPointF centre, double radius, double turn) {
    const double angle = turn * 2 * std::numbers::pi;
    return centre + QPointF(radius * std::sin(angle), -radius * std::cos(angle));
}

// The head and shoulders of a person whose head has its centre at `x`, 8.
void bust(QPainterPath& path, double x) {
    circle(path, {x, 8}, 3.8);
    path.moveTo(x - 6.8, 20.5);
    path.cubicTo(x - 6.8, 12.8, x + 6.8, 12.8, x + 6.8, 20.5);
    path.closeSubpath();
}

Icon clock() {
    Icon made;
    circle(made.fill, {12, 12}, 9);
    circle(made.lines, {12, 12}, 9);
    polyline(made.lines, {{12, 6.8}, {12, 12}, {15.6, 14.2}});
    return made;
}

Icon chart() {
    Icon made;
    box(made.fill, 4, 3, 16, 18);
    box(made.lines, 4, 3, 16, 18);
    polyline(made.lines, {{8.2, 17}, {8.2, 13}});
    polyline(made.lines, {{12, 17}, {12, 7.5}});
    polyline(made.lines, {{15.8, 17}, {15.8, 10.5}});
    return made;
}

Icon cards() {
    Icon made;
    box(made.fill, 3, 9.5, 18, 11);
    box(made.lines, 3, 9.5, 18, 11);
    polyline(made.lines, {{5, 6.3}, {19, 6.3}});
    polyline(made.lines, {{7.5, 3.2}, {16.5, 3.2}});
    polyline(made.lines, {{9.5, 14}, {14.5, 14}});
    return made;
}

Icon question() {
    Icon made;
    circle(made.fill, {12, 12}, 9);
    circle(made.lines, {12, 12}, 9);
    made.lines.moveTo(9.2, 9.6);
    made.lines.cubicTo(9.4, 5.6, 15, 5.8, 14.8, 9.5);
    made.lines.cubicTo(14.7, 11.6, 12, 11.6, 12, 14);
    polyline(made.lines, {{12, 16.9}, {12, 17}});
    return made;
}

Icon door() {
    Icon made;
    box(made.fill, 4, 3, 10, 18);
    polyline(made.lines, {{14, 7.5}, {14, 5}});
    made.lines.quadTo(14, 3, 12, 3);
    made.lines.lineTo(6, 3);
    made.lines.quadTo(4, 3, 4, 5);
    made.lines.lineTo(4, 19);
    made.lines.quadTo(4, 21, 6, 21);
    made.lines.lineTo(12, 21);
    made.lines.quadTo(14, 21, 14, 19);
    made.lines.lineTo(14, 16.5);
    polyline(made.lines, {{9.5, 12}, {21, 12}});
    polyline(made.lines, {{17.3, 8.3}, {21, 12}, {17.3, 15.7}});
    return made;
}

Icon person() {
    Icon made;
    bust(made.fill, 12);
    bust(made.lines, 12);
    return made;
}

Icon tag() {
    Icon made;
    polygon(made.fill, {{3.5, 3.5}, {12, 3.5}, {20.8, 12.3}, {12.3, 20.8}, {3.5, 12}});
    made.lines = made.fill;
    circle(made.lines, {8, 8}, 1.4);
    return made;
}

Icon timetable() {
    Icon made;
    box(made.fill, 3, 4.5, 18, 16.5);
    box(made.lines, 3, 4.5, 18, 16.5);
    polyline(made.lines, {{3.2, 9.6}, {20.8, 9.6}});
    polyline(made.lines, {{8, 2.5}, {8, 6.2}});
    polyline(made.lines, {{16, 2.5}, {16, 6.2}});
    polyline(made.lines, {{6.8, 13.6}, {12.5, 13.6}});
    polyline(made.lines, {{10.5, 17.2}, {17.2, 17.2}});
    return made;
}

Icon person_clock() {
    Icon made;
    bust(made.fill, 9);
    circle(made.lines, {9, 8}, 3.8);
    made.lines.moveTo(11.5, 20.5);
    made.lines.lineTo(2.2, 20.5);
    made.lines.cubicTo(2.2, 15, 6.4, 13.6, 10.6, 14.9);
    circle(made.lines, {17.6, 16.4}, 4.8);
    polyline(made.lines, {{17.6, 13.9}, {17.6, 16.5}, {19.3, 17.5}});
    return made;
}

Icon day_sheet() {
    Icon made;
    box(made.fill, 3.5, 3, 17, 5.8);
    box(made.lines, 3.5, 3, 17, 18);
    polyline(made.lines, {{3.7, 8.8}, {20.3, 8.8}});
    polyline(made.lines, {{3.7, 14.9}, {20.3, 14.9}});
    polyline(made.lines, {{9.2, 8.8}, {9.2, 20.8}});
    return made;
}

Icon bars() {
    Icon made;
    box(made.fill, 4, 4, 12, 4, 1);
    box(made.fill, 4, 10, 16, 4, 1);
    box(made.fill, 4, 16, 8.5, 4, 1);
    made.lines = made.fill;
    polyline(made.lines, {{4, 2}, {4, 22}});
    return made;
}

Icon sun() {
    Icon made;
    circle(made.fill, {12, 12}, 4.4);
    circle(made.lines, {12, 12}, 4.4);
    for (int ray = 0; ray < 8; ++ray)
        polyline(made.lines, {on_circle({12, 12}, 7.9, ray / 8.0), on_circle({12, 12}, 10.3, ray / 8.0)});
    return made;
}

Icon gear() {
    struct Corner {
        double turn;
        double radius;
    };
    constexpr Corner tooth[] = {{-0.034, 7.6}, {-0.021, 10.2}, {0.021, 10.2}, {0.034, 7.6}};
    constexpr int teeth = 8;
    Icon made;
    QPolygonF rim;
    for (int i = 0; i < teeth; ++i) {
        for (const Corner& corner : tooth)
            rim << on_circle({12, 12}, corner.radius, corner.turn + i / double(teeth));
    }
    made.lines.addPolygon(rim);
    made.lines.closeSubpath();
    circle(made.lines, {12, 12}, 3.1);
    made.fill = made.lines;
    return made;
}

Icon check() {
    Icon made;
    polyline(made.lines, {{4.5, 12.8}, {9.8, 18}, {19.5, 6.5}});
    return made;
}

Icon bin() {
    Icon made;
    polygon(made.fill, {{5.8, 7}, {18.2, 7}, {17.2, 21}, {6.8, 21}});
    made.lines = made.fill;
    polyline(made.lines, {{3.5, 6.8}, {20.5, 6.8}});
    polyline(made.lines, {{9, 6.5}, {9, 3.2}, {15, 3.2}, {15, 6.5}});
    polyline(made.lines, {{10, 11}, {10.3, 17}});
    polyline(made.lines, {{14, 11}, {13.7, 17}});
    return made;
}

Icon printer() {
    Icon made;
    box(made.fill, 3, 8.5, 18, 8.5);
    polyline(made.lines, {{6.8, 8.3}, {6.8, 3}, {17.2, 3}, {17.2, 8.3}});
    polyline(made.lines,
        {{6.8, 17}, {5, 17}, {3, 15.5}, {3, 10.5}, {5, 8.5}, {19, 8.5}, {21, 10.5}, {21, 15.5}, {19, 17}, {17.2, 17}});
    box(made.lines, 6.8, 13.6, 10.4, 7.4, 0.5);
    return made;
}

Icon magnifier() {
    Icon made;
    circle(made.fill, {10.5, 10.5}, 6.8);
    circle(made.lines, {10.5, 10.5}, 6.8);
    polyline(made.lines, {{15.5, 15.5}, {21, 21}});
    return made;
}

Icon funnel() {
    Icon made;
    polygon(made.fill, {{3.2, 4}, {20.8, 4}, {14.2, 12}, {14.2, 18}, {9.8, 20.5}, {9.8, 12}});
    made.lines = made.fill;
    return made;
}

Icon back() {
    Icon made;
    polyline(made.lines, {{9, 4.8}, {4, 9.8}, {9, 14.8}});
    made.lines.moveTo(4.2, 9.8);
    made.lines.lineTo(14.5, 9.8);
    made.lines.cubicTo(21.8, 9.8, 21.8, 19.5, 14.5, 19.5);
    made.lines.lineTo(10, 19.5);
    return made;
}

Icon sheet_lens() {
    Icon made;
    box(made.fill, 4, 2.5, 13, 18);
    polyline(made.lines, {{17, 8.5}, {17, 2.5}, {4, 2.5}, {4, 20.5}, {9.5, 20.5}});
    polyline(made.lines, {{7.5, 7}, {13.5, 7}});
    circle(made.lines, {14.5, 14.5}, 4.3);
    polyline(made.lines, {{17.7, 17.7}, {21.5, 21.5}});
    return made;
}

Icon sheet_out() {
    Icon made;
    box(made.fill, 4, 2.5, 13, 18);
    polyline(made.lines, {{17, 8.5}, {17, 2.5}, {4, 2.5}, {4, 20.5}, {17, 20.5}, {17, 19}});
    polyline(made.lines, {{7.5, 7}, {13.5, 7}});
    polyline(made.lines, {{10, 13.8}, {21.5, 13.8}});
    polyline(made.lines, {{17.8, 10.2}, {21.5, 13.8}, {17.8, 17.4}});
    return made;
}

// In the order of IconKind.
constexpr std::array<Icon (*)(), 21> builders{clock, chart, cards, question, door, person, tag, timetable, person_clock,
    day_sheet, bars, sun, gear, check, bin, printer, magnifier, funnel, back, sheet_lens, sheet_out};

} // namespace

Icon icon(IconKind kind) {
    return builders[static_cast<std::size_t>(kind)]();
}

void draw_icon(
    QPainter& painter, IconKind kind, const QRectF& place, double stroke, const QColor& line, const QColor& fill) {
    const Icon shape = icon(kind);
    painter.save();
    painter.translate(place.topLeft());
    painter.scale(place.width() / 24, place.height() / 24);
    painter.fillPath(shape.fill, fill);
    painter.strokePath(shape.lines, QPen(line, stroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.restore();
}

} // namespace artwork
