#include "e2e/road/clerk.h"

#include "base/literals.h"
#include "support/person.h"
#include "ui/parts/picture_button.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDialog>

namespace e2e {

using namespace base;

QWidget& Clerk::front() {
    QCoreApplication::processEvents();
    QWidget* front = &m_window;
    for (auto* dialog : m_window.findChildren<QDialog*>())
        if (dialog->isVisible())
            front = dialog;
    QApplication::setActiveWindow(front);
    return *front;
}

template <typename Widget>
Widget& Clerk::find(const QString& what, const std::function<bool(const Widget&)>& wanted) {
    for (auto* found : front().findChildren<Widget*>())
        if (found->isVisible() && wanted(*found))
            return *found;
    throw RoadError(u"there is no %1"_s.arg(what));
}

void Clerk::press_button(const QString& label) {
    auto& button = find<ui::PictureButton>(
        u"button \"%1\""_s.arg(label), [&](const auto& at) { return at.accessibleName() == label; });
    QTest::mouseClick(&button, Qt::LeftButton);
    QCoreApplication::processEvents();
}

void Clerk::tick(const QString& label) {
    auto& button =
        find<QAbstractButton>(u"\"%1\" to tick"_s.arg(label), [&](const auto& at) { return at.text() == label; });
    QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(button.height() / 2, button.height() / 2));
}

void Clerk::click_box(const QString& label) {
    auto& box =
        find<QLineEdit>(u"box \"%1\""_s.arg(label), [&](const auto& at) { return at.accessibleName() == label; });
    QTest::mouseClick(&box, Qt::LeftButton);
}

ui::GridView& Clerk::grid(const QString& name) {
    return find<ui::GridView>(u"grid \"%1\""_s.arg(name), [&](const auto& at) { return at.objectName() == name; });
}

void Clerk::click_cell(const QString& grid_name, int row, int col) {
    support::click_cell(grid(grid_name), row, col);
}

QWidget& Clerk::keyboard() {
    const QWidget& window = front();
    QWidget* at = QApplication::focusWidget();
    demand(at && window.isAncestorOf(at), u"the keyboard is nowhere in the window"_s);
    return *at;
}

void Clerk::type(const QString& words) {
    keyboard();
    support::type(words);
}

QLineEdit& Clerk::in_hand() {
    auto* list = qobject_cast<QComboBox*>(&keyboard());
    auto* box = list ? list->lineEdit() : qobject_cast<QLineEdit*>(&keyboard());
    demand(box != nullptr, u"the keyboard is in no box"_s);
    return *box;
}

void Clerk::choose_item(const QString& text) {
    auto* list = qobject_cast<QComboBox*>(&keyboard());
    const int wanted = list ? list->findText(text) : -1;
    demand(wanted >= 0, u"the keyboard is in no list with \"%1\""_s.arg(text));
    QTest::keyClick(list, Qt::Key_F4);
    demand(list->view()->isVisible(), u"the list doesn't open"_s);
    QTest::keyClick(list->view(), Qt::Key_Home);
    for (int step = 0; step < wanted; ++step)
        QTest::keyClick(list->view(), Qt::Key_Down);
    QTest::keyClick(list->view(), Qt::Key_Return);
    QCoreApplication::processEvents();
    demand(!list->view()->isVisible() && list->currentText() == text, u"\"%1\" wasn't chosen"_s.arg(text));
}

} // namespace e2e
