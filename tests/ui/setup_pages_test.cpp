// The window of the first start and the page of the settings, where focus and keys are the point.

#include "support/fake_host.h"
#include "support/person.h"
#include "ui/install_tree.h"
#include "ui/mst_kihon_page.h"
#include "ui/printer_box.h"
#include "ui/program.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using setup::TimeBox;
using support::press;
using support::type;

support::FakeHost with_printers() {
    support::FakeHost host;
    host.printer_names = {u"Office"_s, u"PDF"_s};
    return host;
}

class FirstStart : public testing::Test {
protected:
    FirstStart() {
        EXPECT_EQ(program.start(), 0);
        EXPECT_TRUE(program.wizard() && program.wizard()->isVisible());
        QApplication::setActiveWindow(program.wizard());
    }

    ui::fir_start_window& window() { return *program.wizard(); }
    ui::FieldBox& box(TimeBox which, int band) { return *window().time({which, band}); }
    static QString shown(const ui::FieldBox& box) { return box.text() + (box.hasFocus() ? u" <"_s : u""_s); }

    InstallTree tree{Started::Never};
    support::FakeHost host = with_printers();
    ui::Program program{host, tree.programs};
};

class BasicSettings : public testing::Test {
protected:
    InstallTree tree;
    support::FakeHost host = with_printers();
    store::SettingTables tables{tree.settings};
    frame::TurnLink link{tree.settings, host};
    frame::Session session{tree.settings, host, tables, link};
};

} // namespace

TEST_F(FirstStart, TheWizardComesFirstAndTheMainFrameOnceItHasRegistered) {
    EXPECT_EQ(window().windowTitle(), u"初期設定画面"_s);
    window().first_day()->setFocus();
    window().first_day()->selectAll();
    type(u"2x1"_s);
    QTest::mouseClick(window().botan(), Qt::LeftButton);
    EXPECT_FALSE(window().isVisible());

    ui::Program second(host, tree.programs);
    ASSERT_EQ(second.start(), 0);
    EXPECT_EQ(second.wizard(), nullptr);
    EXPECT_TRUE(second.window().isVisible());
    EXPECT_EQ(second.session().settings.month_start_day, 21);
    EXPECT_TRUE(host.shown.empty());
}

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
    ui::Program second(host, tree.programs);
    ASSERT_EQ(second.start(), 0);
    EXPECT_EQ(second.wizard(), nullptr);
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
    for (int i = 0; i < 12; ++i)
        press(Qt::Key_Return);
    EXPECT_TRUE(box(TimeBox::kyu_time, 2).hasFocus());
}

TEST_F(FirstStart, AFailureIsToldAndTheAnswersStay) {
    box(TimeBox::st_time, 1).setFocus();
    type(u"915"_s);
    const QString data = store::rovdata_path(tree.settings);
    ASSERT_TRUE(QFile::rename(data, data + u".away"_s));
    EXPECT_THROW(window().botan()->click(), store::Error);
    EXPECT_TRUE(window().isVisible());
    ASSERT_TRUE(QFile::rename(data + u".away"_s, data));
    window().botan()->click();
    EXPECT_FALSE(window().isVisible());
    auto rovdata = store::Database::open(data, store::Kind::Rovdata);
    auto start = rovdata.prepare("select 開始時間 from kintype where 連番=2 limit 1");
    EXPECT_TRUE(start.step() && start.row().integer(0) == 915);
}

TEST_F(BasicSettings, NumbersAreTypedFromOffsetToOffsetAndSaved) {
    using Form = setup::mst_kihon;
    ui::mst_kihon_page page(session);
    page.show();
    QApplication::setActiveWindow(&page);
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
    EXPECT_EQ(tree.settings.date_style, 1);

    QSignalSpy closed(&page, &ui::MasterPage::close_wanted);
    QTest::mouseClick(page.botan(0), Qt::LeftButton);
    EXPECT_EQ(closed.size(), 1);
}
