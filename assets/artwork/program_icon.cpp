#include "program_icon.h"

#include <QtGui/QLinearGradient>
#include <QtGui/QPainter>

namespace artwork {

namespace {

// All lengths on a field of 64 by 64.
constexpr double field = 64;

const QColor indigo(0x4a, 0x4f, 0xb4);

void draw_ground(QPainter& painter) {
    QLinearGradient ground(0, 0, 0, field);
    ground.setColorAt(0, QColor(0x6f, 0x75, 0xd6));
    ground.setColorAt(1, QColor(0x45, 0x4a, 0xac));
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(2, 2, 60, 60), 14, 14);
}

void draw_card(QPainter& painter) {
    painter.setBrush(QColor(0xdf, 0xe1, 0xfb));
    painter.drawRoundedRect(QRectF(12, 9, 28, 46), 4, 4);
    painter.setPen(QPen(QColor(0x9d, 0xa1, 0xe2), 3, Qt::SolidLine, Qt::RoundCap));
    for (const double y : {18.0, 26.0, 34.0, 42.0})
        painter.drawLine(QPointF(18, y), QPointF(y < 20 ? 33 : 25, y));
}

void draw_clock(QPainter& painter, bool marks) {
    const QPointF centre(40, 38);
    painter.setPen(QPen(indigo, 3));
    painter.setBrush(Qt::white);
    painter.drawEllipse(centre, 17, 17);
    painter.translate(centre);
    painter.setPen(QPen(QColor(0xb4, 0xb7, 0xe4), 1.6, Qt::SolidLine, Qt::RoundCap));
    for (int quarter = 0; marks && quarter < 4; ++quarter) {
        painter.drawLine(QPointF(0, -13.4), QPointF(0, -11.6));
        painter.rotate(90);
    }
    painter.setPen(QPen(QColor(0x2a, 0x2d, 0x5e), 3.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF hands[] = {{0, -10.5}, {0, 0}, {7, 4}};
    painter.drawPolyline(hands, 3);
}

} // namespace

QImage paint_program_icon(int side) {
    QImage picture(side, side, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / field, side / field);
    draw_ground(painter);
    draw_card(painter);
    draw_clock(painter, /*marks=*/side >= 64);
    return picture;
}

QImage paint_installer_side() {
    constexpr int width = 164, height = 314, side = 96;
    QImage picture(width, height, QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, width, height);
    sky.setColorAt(0, QColor(0xee, 0xee, 0xff));
    sky.setColorAt(1, QColor(0xc8, 0xc8, 0xff));
    painter.fillRect(picture.rect(), sky);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 110));
    painter.drawEllipse(QPointF(width, height), 120, 120);
    painter.drawEllipse(QPointF(width, height), 84, 84);
    painter.drawImage((width - side) / 2, 62, paint_program_icon(side));
    return picture;
}

} // namespace artwork
