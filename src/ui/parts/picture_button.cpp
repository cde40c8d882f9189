#include "ui/parts/picture_button.h"

#include "platform/file_error.h"
#include "ui/parts/colours.h"

#include <QFileInfo>
#include <QKeyEvent>
#include <QPainter>

namespace ui {

namespace {

constexpr int pixels_a_point = 2;
constexpr int focus_inset = 3;
constexpr int focus_radius = 6;

void draw_focus(QPainter& painter, QRect button) {
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect ring = button.adjusted(focus_inset, focus_inset, -focus_inset, -focus_inset);
    painter.setPen(QPen(QColor::fromRgb(colours::ground), 1.5)); // seen on the dark buttons, the dots on the light ones
    painter.drawRoundedRect(ring, focus_radius, focus_radius);
    painter.setPen(QPen(QColor::fromRgb(colours::accent), 1.5, Qt::DotLine));
    painter.drawRoundedRect(ring, focus_radius, focus_radius);
}

} // namespace

QPixmap load_picture(const QString& path) {
    QPixmap picture(path);
    if (picture.isNull())
        throw platform::FileError(path);
    picture.setDevicePixelRatio(pixels_a_point);
    return picture;
}

PictureButton::PictureButton(const QString& folder, const frame::Button& button, QWidget* parent)
    : PictureButton(folder, button.up.toString(), button.pressed.toString(), parent) {
    setAccessibleName(button.label.toString());
}

PictureButton::PictureButton(const QString& folder, const QString& up, const QString& pressed, QWidget* parent)
    : QAbstractButton(parent), m_up(load_picture(folder + up)), m_pressed_path(folder + pressed) {
    if (!QFileInfo(m_pressed_path).isFile())
        throw platform::FileError(m_pressed_path);
    setFocusPolicy(Qt::TabFocus);
    setFixedSize(sizeHint());
}

QSize PictureButton::sizeHint() const {
    return m_up.deviceIndependentSize().toSize();
}

/// A picture that was taken away meanwhile is no reason to end the program.
const QPixmap& PictureButton::pressed_picture() {
    if (m_pressed.isNull() && m_pressed.load(m_pressed_path))
        m_pressed.setDevicePixelRatio(pixels_a_point);
    return m_pressed.isNull() ? m_up : m_pressed;
}

void PictureButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setOpacity(isEnabled() ? 1 : 0.45);
    painter.drawPixmap(rect(), isDown() ? pressed_picture() : m_up);
    if (hasFocus())
        draw_focus(painter, rect());
}

void PictureButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

} // namespace ui
