#include "boxes.h"

#include "base/literals.h"
#include "picture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <utility>

namespace tour {

using namespace base;

namespace {

constexpr int glance = 30; ///< milliseconds between two looks

void press(QMessageBox& box, const QString& label) {
    for (QAbstractButton* button : box.buttons())
        if (button->text() == label)
            QTest::mouseClick(button, Qt::LeftButton);
}

} // namespace

Boxes::Boxes(const QDir& out) : m_out(out) {
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
    m_timer.start(glance);
}

void Boxes::await(const QString& text, const QString& button, const QString& picture_name) {
    m_awaited = Awaited{text, button, picture_name};
}

void Boxes::look() {
    QWidget* up = QApplication::activeModalWidget();
    if (!up)
        return;
    auto* box = qobject_cast<QMessageBox*>(up);
    if (box && m_awaited && box->text() == m_awaited->text)
        answer(*box);
    else
        refuse(*up);
}

void Boxes::answer(QMessageBox& box) {
    const Awaited awaited = *std::exchange(m_awaited, std::nullopt);
    save_picture(box, m_out, awaited.picture_name);
    press(box, awaited.button);
}

void Boxes::refuse(QWidget& up) {
    const auto* box = qobject_cast<QMessageBox*>(&up);
    m_unexpected << (box ? box->text() : up.windowTitle());
    save_picture(up, m_out, u"unexpected-box"_s);
    up.close();
}

} // namespace tour
