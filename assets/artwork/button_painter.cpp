#include "button_painter.h"

#include "lettering.h"

#include <QtGui/QLinearGradient>
#include <QtGui/QPainter>

namespace artwork {

namespace {

struct Canvas {
    QPainter& painter;
    const ButtonPicture& button;
    const ShapeStyle& shape;
    const ToneStyle& tone;
    Press press;
};

// The face leaves a border for the shadow below it; a pressed button sinks by one onto the place of its shadow.
QRectF face_of(const Canvas& canvas) {
    const QRectF face(1, 0.5, canvas.shape.size.width() - 2, canvas.shape.size.height() - 2.5);
    return canvas.press == Press::Down ? face.translated(0, 1) : face;
}

QLinearGradient vertical(const QRectF& place, const QColor& top, const QColor& bottom) {
    QLinearGradient gradient(place.topLeft(), place.bottomLeft());
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    return gradient;
}

void draw_shadow(const Canvas& canvas, const QRectF& face) {
    canvas.painter.setPen(Qt::NoPen);
    for (const double drop : {1.5, 0.8}) {
        canvas.painter.setBrush(QColor(30, 30, 70, 22));
        canvas.painter.drawRoundedRect(face.translated(0, drop), canvas.shape.radius, canvas.shape.radius);
    }
}

// The shade that the upper rim throws on a face that lies deeper.
void draw_hollow(const Canvas& canvas, const QRectF& face) {
    const QRectF rim(face.left(), face.top(), face.width(), 5);
    canvas.painter.save();
    QPainterPath inside;
    inside.addRoundedRect(face, canvas.shape.radius, canvas.shape.radius);
    canvas.painter.setClipPath(inside);
    canvas.painter.fillRect(rim, vertical(rim, QColor(20, 20, 60, 60), QColor(20, 20, 60, 0)));
    canvas.painter.restore();
}

void draw_face(const Canvas& canvas) {
    const QRectF face = face_of(canvas);
    const bool up = canvas.press == Press::Up;
    if (up)
        draw_shadow(canvas, face);
    canvas.painter.setPen(Qt::NoPen);
    canvas.painter.setBrush(up ? vertical(face, canvas.tone.face_top, canvas.tone.face_bottom)
                               : vertical(face, canvas.tone.pressed_top, canvas.tone.pressed_bottom));
    canvas.painter.drawRoundedRect(face, canvas.shape.radius, canvas.shape.radius);
    if (!up)
        draw_hollow(canvas, face);
    canvas.painter.setPen(QPen(up ? canvas.tone.edge : canvas.tone.edge.darker(118), 1));
    canvas.painter.setBrush(Qt::NoBrush);
    canvas.painter.drawRoundedRect(
        face.adjusted(0.5, 0.5, -0.5, -0.5), canvas.shape.radius - 0.5, canvas.shape.radius - 0.5);
}

struct Label {
    Lettering lettering;
    double width;
};

// A short label in the middle of its button is spaced out a little, so that two characters beside four don't look lost.
Label fitted_label(QStringView text, int size, double room, double short_gap = 0) {
    for (;; --size) {
        const Lettering lettering{label_font(size), size * (text.size() <= 2 ? short_gap : 0.05)};
        const double width = width_of(lettering, text);
        if (width <= room || size < 8)
            return {lettering, width};
    }
}

void draw_label(const Canvas& canvas, const Label& label, double left, double middle) {
    canvas.painter.setPen(canvas.tone.ink);
    draw_text(canvas.painter, label.lettering, canvas.button.label, left, middle);
}

void draw_icon_at(const Canvas& canvas, double left, double middle) {
    const double size = canvas.shape.icon_size;
    draw_icon(canvas.painter, canvas.button.icon, QRectF(left, middle - size / 2, size, size), canvas.shape.stroke,
        canvas.tone.line, canvas.tone.tint);
}

// Icon and label as one group in the middle of the face.
void draw_centred(const Canvas& canvas) {
    const QRectF face = face_of(canvas);
    const double gap = canvas.shape.icon_size * 0.36;
    const double room = face.width() - 16 - canvas.shape.icon_size - gap;
    const Label label = fitted_label(canvas.button.label, canvas.shape.label_size, room, /*short_gap=*/0.28);
    const double left = face.center().x() - (canvas.shape.icon_size + gap + label.width) / 2;
    draw_icon_at(canvas, left, face.center().y());
    draw_label(canvas, label, left + canvas.shape.icon_size + gap, face.center().y());
}

void draw_tile(const Canvas& canvas, const QRectF& tile) {
    canvas.painter.setPen(Qt::NoPen);
    canvas.painter.setBrush(canvas.press == Press::Up ? canvas.tone.tint : QColor(255, 255, 255, 120));
    canvas.painter.drawRoundedRect(tile, 6, 6);
    const double inset = (tile.width() - canvas.shape.icon_size) / 2;
    draw_icon(canvas.painter, canvas.button.icon, tile.adjusted(inset, inset, -inset, -inset), canvas.shape.stroke,
        canvas.tone.line, QColor(255, 255, 255, 190));
}

void draw_chevron(const Canvas& canvas, QPointF centre) {
    QPainterPath chevron(centre + QPointF(-2.2, -4.4));
    chevron.lineTo(centre + QPointF(2.2, 0));
    chevron.lineTo(centre + QPointF(-2.2, 4.4));
    canvas.painter.strokePath(chevron, QPen(canvas.tone.edge, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void draw_menu(const Canvas& canvas) {
    const QRectF face = face_of(canvas);
    const double side = face.height() - 11;
    draw_tile(canvas, QRectF(face.left() + 6, face.center().y() - side / 2, side, side));
    const double left = face.left() + side + 18;
    const Label label = fitted_label(canvas.button.label, canvas.shape.label_size, face.right() - 24 - left);
    draw_label(canvas, label, left, face.center().y());
    draw_chevron(canvas, QPointF(face.right() - 15, face.center().y()));
}

void draw_heading(const Canvas& canvas) {
    const double middle = canvas.shape.size.height() / 2.0;
    const double side = canvas.shape.size.height() - 8;
    draw_tile(canvas, QRectF(2, middle - side / 2, side, side));
    const double left = side + 14;
    draw_label(canvas, fitted_label(canvas.button.label, canvas.shape.label_size, canvas.shape.size.width() - left),
        left, middle);
}

void draw(const Canvas& canvas) {
    if (canvas.button.shape == Shape::Heading)
        return draw_heading(canvas);
    draw_face(canvas);
    canvas.button.shape == Shape::Menu ? draw_menu(canvas) : draw_centred(canvas);
}

} // namespace

QImage blank_picture(QSize size, const QColor& back) {
    QImage picture(size * pixels_a_point, QImage::Format_RGB32);
    const int dots_a_metre = qRound(96 * pixels_a_point / 0.0254);
    picture.setDotsPerMeterX(dots_a_metre);
    picture.setDotsPerMeterY(dots_a_metre);
    picture.fill(back);
    return picture;
}

void use_logical_pixels(QPainter& painter) {
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(pixels_a_point, pixels_a_point);
}

QImage paint_button(const ButtonPicture& button, Press press) {
    const ShapeStyle& shape = shape_style(button.shape);
    QImage picture = blank_picture(shape.size, shape.back);
    QPainter painter(&picture);
    use_logical_pixels(painter);
    draw({painter, button, shape, tone_style(button.tone), press});
    return picture;
}

} // namespace artwork
