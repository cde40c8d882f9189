#include "boxes.h"

#include "base/literals.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTest>

namespace tour {

using namespace base;

Boxes::Boxes(Pictures& pictures) : m_pictures(pictures) {
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
    m_timer.start(30);
}

void Boxes::await(const QString& text, const QString& button, const QString& picture_name) {
    m_awaited.push_back({text, button, picture_name});
}

void Boxes::look() {
    QWidget* up = QApplication::activeModalWidget();
    if (!up)
        return;
    const auto* box = qobject_cast<QMessageBox*>(up);
    const QString text = box ? box->text() : up->windowTitle();
    if (m_awaited.empty() || text != m_awaited.front().text) {
        m_unexpected << text;
        m_pictures.take(*up, u"unexpected-box"_s);
        up->close();
        return;
    }
    const Awaited awaited = m_awaited.front();
    m_awaited.pop_front();
    m_pictures.take(*up, awaited.picture_name);
    for (QAbstractButton* button : up->findChildren<QAbstractButton*>())
        if (button->text() == awaited.button)
            QTest::mouseClick(button, Qt::LeftButton);
}

} // namespace tour
