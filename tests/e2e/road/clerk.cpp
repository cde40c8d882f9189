#include "e2e/road/clerk.h"

#include "base/literals.h"
#include "support/person.h"
#include "ui/parts/colours.h"
#include "ui/parts/picture_button.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDialog>

namespace e2e {

using namespace base;

namespace {

QLineEdit& line_of(QWidget& box) {
    const auto* list = qobject_cast<QComboBox*>(&box);
    auto* line = list ? list->lineEdit() : qobject_cast<QLineEdit*>(&box);
    demand(line != nullptr, u"nothing can be typed there"_s);
    return *line;
}

void list_cut_off(const QWidget& in, QStringList& found) {
    for (const auto* part : in.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (!part->isVisible() || part->isWindow())
            continue;
        const auto* label = qobject_cast<const QLabel*>(part);
        if (!in.rect().contains(part->geometry()) || (label && label->height() < label->heightForWidth(label->width())))
            found << QString::fromLatin1(part->metaObject()->className()) + part->property("text").toString();
        if (!qobject_cast<const QAbstractScrollArea*>(part))
            list_cut_off(*part, found);
    }
}

} // namespace

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
    for (const QWidget* in : {&front(), &m_window}) // a search stands beside the window and leaves it in reach
        for (auto* found : in->findChildren<Widget*>())
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

QLineEdit& Clerk::box(const QString& label) {
    auto& found =
        find<QWidget>(u"box \"%1\""_s.arg(label), [&](const auto& at) { return at.accessibleName() == label; });
    return line_of(found);
}

void Clerk::click_box(const QString& label) {
    QTest::mouseClick(&box(label), Qt::LeftButton);
}

ui::GridView& Clerk::grid(const QString& name) {
    return find<ui::GridView>(u"grid \"%1\""_s.arg(name), [&](const auto& at) { return at.objectName() == name; });
}

void Clerk::click_cell(const QString& grid_name, int row, int col) {
    support::click_cell(grid(grid_name), row, col);
    QCoreApplication::processEvents();
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
    return line_of(keyboard());
}

QString Clerk::keyboard_at() {
    const QWidget& at = keyboard();
    return at.accessibleName().isEmpty() ? at.objectName() : at.accessibleName();
}

QString Clerk::selected() {
    const QLineEdit& box = in_hand();
    for (const auto* at : front().findChildren<QLineEdit*>()) {
        const bool lit = at->palette().color(QPalette::Base) == QColor::fromRgb(ui::colours::box_in_hand);
        demand(at->visibleRegion().isEmpty() || lit == (at == &box), u"another box than the one in hand is lit"_s);
    }
    return box.selectedText();
}

void Clerk::read(const QString& text) {
    find<QWidget>(u"\"%1\" to read"_s.arg(text),
        [&](const auto& at) { return at.property("text").toString().remove(u'\u200b').contains(text); });
}

QStringList Clerk::buttons_down() {
    QStringList labels;
    for (const auto* button : front().findChildren<ui::PictureButton*>())
        if (button->isDown())
            labels << button->accessibleName();
    return labels;
}

QStringList Clerk::cut_off() {
    QStringList found;
    list_cut_off(front(), found);
    return found;
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
