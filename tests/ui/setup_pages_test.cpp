// The window of the first start and the page of the settings, where focus and keys are the point.

#include "support/person.h"
#include "ui/install_tree.h"
#include "ui/pages/mst_kihon_page.h"
#include "ui/pages/printer_box.h"
#include "ui/program.h"

#include <gtest/gtest.h>

namespace {

using namespace base;
using setup::TimeBox;
using support::press;
using support::type;

struct FirstStart : testing::Test, InstallTree {
    FirstStart() : InstallTree(Started::Never) {
        EXPECT_EQ(program.start(), 0);
        EXPECT_TRUE(program.wizard() && program.wizard()->isVisible());
        QApplication::setActiveWindow(program.wizard());
    }

    ui::fir_start_window& window() { return *program.wizard(); }
    ui::FieldBox& box(TimeBox which, int band) { return *window().time({which, band}); }
    static QString shown(const ui::FieldBox& box) { return box.text() + (box.hasFocus() ? u" <"_s : u""_s); }

    ui::Program program{host, programs};
};

struct BasicSettings : testing::Test, InstallTree {};

} // namespace

TEST_F(FirstStart, TabGoesThroughTheScreenFromTopToBottom) {
    box(TimeBox::kyu_time, 2).setFocus();
    for (const QWidget* next : {static_cast<QWidget*>(window().first_day()), window().findChild<QWidget*>(u"prconb"_s),
             static_cast<QWidget*>(window().botan())}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), next);
    }
}

TEST_F(FirstStart, AWindowThatIsClosedLeadsToTheMainFrameAllTheSame) {
    EXPECT_TRUE(window().close());
    ui::Program second(host, programs);
    ASSERT_EQ(second.start(), 0);
    EXPECT_TRUE(!second.wizard() && second.window().isVisible());
    EXPECT_TRUE(host.shown.empty()) << "nothing is asked";
}

TEST_F(FirstStart, TimesAreTypedAsDigitsFromBoxToBox) {
    EXPECT_EQ(shown(box(TimeBox::st_time, 0)), u"0 <"_s) << "the first box is in hand";
    type(u"500 Enter"_s);
    EXPECT_EQ(shown(box(TimeBox::st_time, 0)), u"5:00"_s);
    EXPECT_EQ(shown(box(TimeBox::en_time, 0)), u"800 <"_s);
    EXPECT_EQ(box(TimeBox::en_time, 0).cursorPosition(), 0);
    type(u"830 Enter Enter Enter"_s);
    EXPECT_EQ(shown(box(TimeBox::en_time, 0)), u"8:30"_s);
    EXPECT_TRUE(box(TimeBox::st_time, 1).hasFocus());
}

TEST_F(BasicSettings, NumbersAreTypedFromOffsetToOffsetAndSaved) {
    using Form = setup::mst_kihon;
    host.printer_names = {u"Office"_s, u"PDF"_s};
    ui::Whole<ui::mst_kihon_page> page(session);
    support::bring_up(page, {1280, 660});
    page.atai(Form::offset_y)->setFocus();
    type(u"-x3 Enter 5"_s);
    EXPECT_TRUE(page.atai(Form::offset_x)->hasFocus());
    EXPECT_EQ(page.atai(Form::offset_y)->text(), u"-3"_s);
    page.atai(Form::offset_x)->setCursorPosition(0);
    type(u"x1"_s);
    EXPECT_EQ(page.atai(Form::offset_x)->text(), u"15"_s) << "a dropped key leaves the cursor where it is";
    page.waseireki(1)->click();
    page.ck()->click();
    page.prconb()->setFocus();
    press(Qt::Key_Down);
    QTest::mouseClick(page.botan(1), Qt::LeftButton);
    const auto stored = [&](const QString& key) { return tables.設定読込(u"losystem"_s, key); };
    EXPECT_EQ(stored(u"プリンター１"_s), u"Office"_s);
    EXPECT_EQ(stored(u"プリンター１Ｙ"_s) + stored(u"プリンター１Ｘ"_s) + stored(u"ネット情報"_s), u"-3151"_s);
    EXPECT_EQ(settings.date_style, 1);
}
