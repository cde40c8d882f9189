#include "e2e/road/boxes.h"

#include "base/literals.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDebug>
#include <QMessageBox>
#include <QTableWidget>
#include <QTest>

namespace e2e {

using namespace base;

Boxes::Boxes(Pictures& pictures) : m_pictures(pictures) {
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
    m_timer.start(30);
}

void Boxes::look() {
    QWidget* up = QApplication::activeModalWidget();
    if (!up)
        return;
    const auto* box = qobject_cast<QMessageBox*>(up);
    const QString text = box ? box->text() : up->windowTitle();
    if (!m_awaited.empty() && text.contains(m_awaited.front().text))
        return answer(*up);
    m_unexpected << text;
    m_pictures.take(*up, u"unexpected-box"_s);
    up->close();
}

void Boxes::answer(QWidget& box) {
    const Awaited awaited = m_awaited.front();
    m_awaited.pop_front();
    if (!awaited.picture.isEmpty())
        m_pictures.take(box, awaited.picture);
    if (!awaited.rows.isEmpty())
        compare(awaited.rows, *box.findChild<QTableWidget*>());
    for (auto* button : box.findChildren<QAbstractButton*>())
        if (button->text() == awaited.button)
            return QTest::mouseClick(button, Qt::LeftButton);
    m_unexpected << u"%1, without a button \"%2\""_s.arg(awaited.text, awaited.button);
    box.close();
}

void Boxes::compare(const QList<QStringList>& wanted, const QTableWidget& table) {
    QList<QStringList> there(table.rowCount());
    for (int row = 0; row < table.rowCount(); ++row)
        for (int col = 0; col < std::min(table.columnCount(), int(wanted[0].size())); ++col) {
            const QWidget* cell = table.cellWidget(row, col);
            there[row] << (cell ? cell->property("text").toString() : table.item(row, col)->text());
        }
    if (there != wanted)
        m_unexpected << QDebug::toString(there);
}

QStringList Boxes::faults() const {
    QStringList faults = m_unexpected;
    for (const Awaited& awaited : m_awaited)
        faults << u"awaited in vain: "_s + awaited.text;
    return faults;
}

} // namespace e2e
