#include "splash.h"

#include "button_painter.h"
#include "lettering.h"
#include "style.h"

#include <QtGui/QLinearGradient>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace artwork {

namespace {

constexpr QSize size(480, 270);

const QColor ink(0x2a, 0x2d, 0x5e);
const QColor indigo(0x4a, 0x4f, 0xb4);
const QColor soft(0xd8, 0xda, 0xf9);
const QColor edge(0xb4, 0xb7, 0xe4);
const QColor rose(0xd9, 0x6a, 0x70);

void draw_ground(QPainter& painter) {
    QLinearGradient sky(0, 0, size.width(), size.height());
    sky.setColorAt(0, QColor(0xfb, 0xfb, 0xff));
    sky.setColorAt(1, QColor(0xdd, 0xde, 0xfb));
    painter.fillRect(QRect(QPoint(), size), sky);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 110));
    painter.drawEllipse(QPointF(376, 132), 178, 178);
    painter.drawEllipse(QPointF(376, 132), 138, 138);
}

void draw_card_rows(QPainter& painter, const QRectF& card) {
    constexpr int rows = 9;
    const double step = (card.height() - 34) / rows;
    for (int row = 0; row < rows; ++row) {
        const double y = card.top() + 28 + row * step;
        const bool rest = row % 7 >= 5;
        painter.setPen(QPen(soft, 1));
        painter.drawLine(QPointF(card.left() + 9, y + step - 4), QPointF(card.right() - 9, y + step - 4));
        painter.setPen(QPen(rest ? rose.lighter(140) : edge, 3, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(card.left() + 13, y + 4), QPointF(card.left() + 18, y + 4));
        if (rest)
            continue;
        painter.setPen(QPen(indigo.lighter(150), 3, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(card.left() + 31, y + 4), QPointF(card.left() + 49, y + 4));
        painter.drawLine(QPointF(card.left() + 59, y + 4), QPointF(card.left() + 77, y + 4));
    }
}

void draw_card(QPainter& painter) {
    const QRectF card(-50, -84, 100, 168);
    painter.save();
    painter.translate(330, 140);
    painter.rotate(-9);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(40, 42, 100, 24));
    painter.drawRoundedRect(card.translated(3, 5), 8, 8);
    painter.setPen(QPen(edge, 1));
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(card, 8, 8);
    QPainterPath head;
    head.addRoundedRect(QRectF(card.left() + 9, card.top() + 9, card.width() - 18, 11), 3, 3);
    painter.fillPath(head, indigo);
    draw_card_rows(painter, card);
    painter.restore();
}

void draw_hour_marks(QPainter& painter, double radius) {
    painter.save();
    for (int hour = 0; hour < 12; ++hour) {
        const bool quarter = hour % 3 == 0;
        painter.setPen(QPen(quarter ? indigo : edge, quarter ? 3.2 : 2, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(0, -radius + 9), QPointF(0, -radius + (quarter ? 16 : 12.5)));
        painter.rotate(30);
    }
    painter.restore();
}

void draw_hand(QPainter& painter, double degrees, double length, double width, const QColor& colour) {
    painter.save();
    painter.rotate(degrees);
    painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(0, 0), QPointF(0, -length));
    painter.restore();
}

// Half past eight, the hour at which a working day begins.
void draw_clock(QPainter& painter) {
    constexpr double radius = 62;
    painter.save();
    painter.translate(398, 160);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(40, 42, 100, 34));
    painter.drawEllipse(QPointF(3, 6), radius, radius);
    painter.setBrush(Qt::white);
    painter.setPen(QPen(indigo, 5));
    painter.drawEllipse(QPointF(0, 0), radius, radius);
    draw_hour_marks(painter, radius);
    draw_hand(painter, 255, 28, 5, ink);
    draw_hand(painter, 180, 42, 3.6, ink);
    painter.setPen(Qt::NoPen);
    painter.setBrush(rose);
    painter.drawEllipse(QPointF(0, 0), 4.5, 4.5);
    painter.restore();
}

void draw_name(QPainter& painter) {
    painter.setPen(ink);
    draw_text(painter, {label_font(56), 10}, u"就業録", 40, 110);
    painter.setPen(Qt::NoPen);
    painter.setBrush(indigo);
    painter.drawRoundedRect(QRectF(43, 152, 40, 4), 2, 2);
    QFont line = label_font(14);
    line.setWeight(QFont::Normal);
    painter.setPen(QColor(0x5b, 0x5e, 0x8c));
    draw_text(painter, {line, 2}, u"出勤と勤務時間の記録", 43, 178);
}

} // namespace

QImage paint_splash() {
    QImage picture = blank_picture(size, Qt::white);
    QPainter painter(&picture);
    use_logical_pixels(painter);
    draw_ground(painter);
    draw_card(painter);
    draw_clock(painter);
    draw_name(painter);
    painter.setPen(QPen(edge, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(0.5, 0.5, size.width() - 1, size.height() - 1));
    return picture;
}

} // namespace artwork
