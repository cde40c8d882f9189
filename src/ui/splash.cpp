#include "ui/splash.h"

#include "base/literals.h"
#include "ui/parts/colours.h"
#include "ui/parts/picture_button.h"
#include "ui/parts/style.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QScreen>

namespace ui {

using namespace base;

namespace {

constexpr QSize splash_size(480, 270);
constexpr QPoint label_place(28, 232); // the picture is plain there

} // namespace

Splash::Splash(const base::Settings& settings)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint), m_settings(settings), m_Label1(new QLabel(this)) {
    setWindowTitle(u"就業録"_s);
    setFixedSize(splash_size);
    letter(*m_Label1, Lettering::Comment);
    m_Label1->move(label_place);
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
}

void Splash::refresh(const frame::stg& form) {
    m_Label1->setText(form.Label1);
    m_Label1->adjustSize();
    if (form.Image1_Visible && m_Image1.isNull())
        m_Image1 = load_picture(frame::splash_path(m_settings));
    update();
}

void Splash::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.fillRect(rect(), QColor::fromRgb(colours::page));
    painter.drawPixmap(rect(), m_Image1);
}

} // namespace ui
