#include "e2e/road/clerk.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "support/person.h"
#include "ui/parts/picture_button.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QLineEdit>

namespace e2e {

using namespace base;

void demand(bool condition, const QString& what) {
    if (!condition)
        throw RoadError(what);
}

void Clerk::press_button(const QString& label) {
    come_back();
    for (auto* button : m_window.findChildren<ui::PictureButton*>()) {
        if (button->accessibleName() != label || !button->isVisible())
            continue;
        QTest::mouseClick(button, Qt::LeftButton);
        QCoreApplication::processEvents();
        return;
    }
    throw RoadError(u"no button reads \"%1\""_s.arg(label));
}

ui::ent_rovena_page& Clerk::entry() {
    auto* page = qobject_cast<ui::ent_rovena_page*>(m_window.pages().currentWidget());
    demand(page != nullptr, u"the entry page isn't in view"_s);
    return *page;
}

ui::GridView& Clerk::grid(const QString& name) {
    auto* view = m_window.pages().currentWidget()->findChild<ui::GridView*>(name);
    demand(view != nullptr, u"the page in view has no grid \"%1\""_s.arg(name));
    return *view;
}

void Clerk::click_cell(const QString& grid_name, int row, int col) {
    come_back();
    support::click_cell(grid(grid_name), row, col);
}

/// A window manager gives the keyboard back behind a list or a box; a desktop without a display has none.
void Clerk::come_back() {
    QApplication::setActiveWindow(&m_window);
}

void Clerk::tick(const QString& label) {
    for (auto* button : m_window.pages().currentWidget()->findChildren<QAbstractButton*>()) {
        if (button->text() != label || !button->isVisible())
            continue;
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(button->height() / 2, button->height() / 2));
        return;
    }
    throw RoadError(u"nothing to tick reads \"%1\""_s.arg(label));
}

void Clerk::click_box(const QString& label) {
    come_back();
    for (auto* box : m_window.pages().currentWidget()->findChildren<QLineEdit*>())
        if (box->accessibleName() == label)
            return QTest::mouseClick(box, Qt::LeftButton);
    throw RoadError(u"no box is called \"%1\""_s.arg(label));
}

void Clerk::type_line(const QString& text) {
    support::type_word(text);
    QTest::keyClick(keyboard(), Qt::Key_Return);
}

void Clerk::choose_item(const QString& text) {
    auto* list = qobject_cast<QComboBox*>(keyboard());
    demand(list != nullptr, u"the keyboard isn't in a list"_s);
    const int wanted = list->findText(text);
    demand(wanted >= 0, u"the list has no \"%1\""_s.arg(text));
    QTest::keyClick(list, Qt::Key_F4);
    demand(list->view()->isVisible(), u"the list doesn't open"_s);
    QTest::keyClick(list->view(), Qt::Key_Home);
    for (int step = 0; step < wanted; ++step)
        QTest::keyClick(list->view(), Qt::Key_Down);
    QTest::keyClick(list->view(), Qt::Key_Return);
    QCoreApplication::processEvents();
    come_back();
    demand(!list->view()->isVisible() && list->currentText() == text, u"\"%1\" wasn't chosen"_s.arg(text));
}

void Clerk::choose_employee(int row) {
    support::click_cell(*entry().controls().hyou_syain, row, 1);
    demand(!entry().form().syainsyscd.isEmpty(), u"no employee was chosen by the click"_s);
}

void Clerk::step_to(QComboBox& selector, const QString& text) {
    const int wanted = selector.findText(text);
    demand(wanted >= 0, u"the selector has no \"%1\""_s.arg(text));
    if (selector.isEditable())
        QTest::mouseClick(selector.lineEdit(), Qt::LeftButton);
    while (selector.currentIndex() != wanted) {
        const int before = selector.currentIndex();
        QTest::keyClick(keyboard(), before < wanted ? Qt::Key_Down : Qt::Key_Up);
        demand(selector.currentIndex() != before, u"the selector doesn't step to \"%1\""_s.arg(text));
    }
}

void Clerk::choose_month(int year, int month) {
    const auto& ym = entry().controls().ym;
    step_to(*ym[0], digits(year));
    step_to(*ym[1], digits(month));
    QCoreApplication::processEvents();
}

QWidget* Clerk::keyboard() {
    QWidget* at = QApplication::focusWidget();
    demand(at != nullptr && m_window.isAncestorOf(at), u"the keyboard is nowhere in the window"_s);
    return at;
}

void Clerk::type_days(const QList<TypedDay>& days) {
    support::click_cell(*entry().controls().hyou, days.first().row, entry::col::clock_in);
    const base::Sheet& hyou = entry().form().sheet.hyou;
    for (const TypedDay& day : days) {
        demand(
            hyou.Row() == day.row && hyou.Col() == entry::col::clock_in, u"the cursor isn't on row %1"_s.arg(day.row));
        for (const QString& digits : {day.clock_in, day.clock_out, day.pause}) {
            support::type_word(digits);
            QTest::keyClick(keyboard(), Qt::Key_Return);
        }
    }
}

void Clerk::type_remarks(const QList<TypedDay>& days) {
    for (const TypedDay& day : days) {
        if (day.remark.isEmpty())
            continue;
        support::click_cell(*entry().controls().hyou, day.row, entry::col::remark);
        support::type_word(day.remark);
        QTest::keyClick(keyboard(), Qt::Key_Return);
    }
}

void Clerk::choose_kinds(const QList<TypedDay>& days) {
    for (const TypedDay& day : days) {
        if (day.kind.isEmpty())
            continue;
        support::click_cell(*entry().controls().hyou, day.row, entry::col::kind);
        auto* list = qobject_cast<ui::CellCombo*>(keyboard());
        demand(list != nullptr, u"no list lies over the kind of row %1"_s.arg(day.row));
        step_to(*list, day.kind);
    }
}

void Clerk::type_count(int column, const QString& digits) {
    ui::GridView& strip = *entry().controls().hyou_day;
    support::click_cell(strip, entry::strip::count, column);
    QTest::keyClick(&strip, Qt::Key_Delete);
    QTest::keyClicks(&strip, digits);
}

} // namespace e2e
