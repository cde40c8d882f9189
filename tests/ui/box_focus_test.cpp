// Text boxes when the keyboard comes back to them: from a message of this program, and from another program.

#include "base/literals.h"
#include "support/person.h"
#include "ui/entry_company.h"
#include "ui/main_window.h"
#include "ui/masters/mst_syain_page.h"
#include "ui/parts/field_box.h"
#include "ui/qt_host.h"

#include <QComboBox>
#include <QLineEdit>
#include <gtest/gtest.h>

namespace {

using namespace base;
using frame::Page;
using support::type;

/// The main window on the real desktop.
struct BoxFocus : testing::Test, EntryCompany {
    BoxFocus() {
        comsys().exec("insert into bangou (番号名称, 番号) values ('勤務種類', 3), ('社員番号', 3)");
        support::bring_up(window, {1366, 768});
    }
    void open(Page page, int report = 0) {
        window.form().midasi_Click(3);
        window.form().report_no = report;
        window.pages().show(page);
        QCoreApplication::processEvents();
    }
    /// The person is asked whether to end, and stays.
    void stay(const std::function<void()>& leave) {
        support::answer_box(u"いいえ"_s);
        leave();
        come_back();
    }
    /// A message was in front of the window.
    void come_back() {
        QCoreApplication::processEvents();
        if (!window.isActiveWindow())
            QApplication::setActiveWindow(&window);
    }
    static QLineEdit& box() {
        QWidget* at = QApplication::focusWidget();
        const auto* list = qobject_cast<QComboBox*>(at);
        auto* found = list ? list->lineEdit() : qobject_cast<QLineEdit*>(at);
        return found ? *found : throw std::logic_error("the keyboard is in no box");
    }
    static bool lit(const QLineEdit& box) { return box.palette().color(QPalette::Base) == QColor(240, 240, 255); }

    ui::QtHost desktop;
    frame::Session on_desktop{settings, desktop, tables, link};
    ui::MainWindow window{on_desktop};
};

/// Every kind of box: of a form, over a cell, of a date, of a month.
const std::tuple<Page, int, QString, QString> boxes[] = {{Page::mst_syain, 0, u"77"_s, u"77"_s},
    {Page::mst_kinsyu, 0, u"ab"_s, u"ab"_s}, {Page::rov_01, 5, u"2004/9/3"_s, u"200493"_s},
    {Page::rov_01, 4, u"2003"_s, u"2003"_s}, {Page::ent_rovena, 0, u"2003"_s, u"2003"_s}};

} // namespace

TEST_F(BoxFocus, AfterAMessageTheBoxInHandIsSelectedAsIfTheKeyboardHadJustCome) {
    for (const auto& [page, report, typed, held] : boxes) {
        open(page, report);
        type(typed);
        EXPECT_EQ(box().text(), held);
        stay([this] { window.close(); });
        EXPECT_EQ(box().selectedText(), held);
        EXPECT_TRUE(lit(box()));
        type(u"8"_s);
        EXPECT_EQ(box().text(), u"8"_s) << held.toStdString();
    }
}

TEST_F(BoxFocus, AMessageThatSendsTheKeyboardToABoxLeavesItSelectedAndLit) {
    open(Page::mst_syain);
    auto& page = dynamic_cast<ui::mst_syain_page&>(*window.pages().page(Page::mst_syain));
    type(u"77 Enter"_s);
    support::answer_box(u"OK"_s);
    QTest::mouseClick(page.botan(1), Qt::LeftButton);
    come_back();
    EXPECT_TRUE(page.atai(1)->hasFocus());
    EXPECT_EQ(box().selectedText(), u"77"_s);
    EXPECT_TRUE(lit(box()));
    EXPECT_FALSE(lit(*page.atai(2)));
    type(u"88"_s);
    EXPECT_EQ(box().text(), u"88"_s);
}

TEST_F(BoxFocus, ADateIsTypedAnewAfterAMessage) {
    open(Page::rov_01, 5);
    type(u"20041003 Enter 20041031 Enter"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
    stay([this] { window.form().midasi_Click(5); });
    EXPECT_EQ(box().selectedText(), u"20041031"_s) << "the digits, as in any date box that is come to";
    type(u"20041103 Enter"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
    EXPECT_EQ(box().text(), u"20041103"_s);
}

TEST_F(BoxFocus, AnotherProgramInBetweenLeavesTheBoxAsItWas) {
    for (const auto& [page, report, typed, held] : boxes) {
        open(page, report);
        type(typed);
        QApplication::setActiveWindow(nullptr);
        QApplication::setActiveWindow(&window);
        EXPECT_FALSE(box().hasSelectedText());
        EXPECT_TRUE(lit(box()));
        type(u"8"_s);
        EXPECT_EQ(box().text(), held + u'8');
    }
}
