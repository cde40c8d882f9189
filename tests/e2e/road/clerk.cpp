#include "e2e/road/clerk.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "support/person.h"
#include "ui/picture_button.h"

#include <QLineEdit>

namespace e2e {

using namespace base;

void demand(bool condition, const QString& what) {
    if (!condition)
        throw RoadError(what);
}

void Clerk::press_button(const QString& label) {
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
