#include "boxes.h"

#include "base/literals.h"
#include "e2e/road/clerk.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <cstdio>
#include <utility>

namespace tour {

using namespace base;

void save_picture(QWidget& of, const QDir& out, const QString& name) {
    const QString path = out.filePath(name + u".png"_s);
    e2e::demand(of.grab().save(path), u"can't write "_s + path);
    std::printf("%s\n", qPrintable(path));
    std::fflush(stdout);
}

Boxes::Boxes(const QDir& out) : m_out(out) {
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
    m_timer.start(30);
}

void Boxes::await(const QString& text, const QString& button, const QString& picture_name) {
    m_awaited = Awaited{text, button, picture_name};
}

void Boxes::look() {
    QWidget* up = QApplication::activeModalWidget();
    if (!up)
        return;
    const auto* box = qobject_cast<QMessageBox*>(up);
    if (!box || !m_awaited || box->text() != m_awaited->text) {
        m_unexpected << (box ? box->text() : up->windowTitle());
        save_picture(*up, m_out, u"unexpected-box"_s);
        up->close();
        return;
    }
    const Awaited awaited = *std::exchange(m_awaited, std::nullopt);
    save_picture(*up, m_out, awaited.picture_name);
    for (QAbstractButton* button : box->buttons())
        if (button->text() == awaited.button)
            QTest::mouseClick(button, Qt::LeftButton);
}

} // namespace tour
