#pragma once

// Line icons on a field of 24 by 24: lines in one colour over fillings in a lighter one.

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace artwork {

enum class IconKind {
    Clock,
    Chart,
    Cards,
    Question,
    Door,
    Person,
    Tag,
    Timetable,
    PersonClock,
    DaySheet,
    Bars,
    Sun,
    Gear,
    Check,
    Bin,
    Printer,
    Magnifier,
    Funnel,
    Back,
    SheetLens,
    SheetOut,
};

struct Icon {
    QPainterPath lines;
    QPainterPath fill;
};

Icon icon(IconKind kind);

// Draws the icon into the square `place` with lines of `stroke` units of the 24 by 24 field.
void draw_icon(
    QPainter& painter, IconKind kind, const QRectF& place, double stroke, const QColor& line, const QColor& fill);

} // namespace artwork
