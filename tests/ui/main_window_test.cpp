#include "ui/main_window.h"

#include "base/literals.h"
#include "platform/file_error.h"
#include "support/fake_host.h"
#include "ui/application.h"
#include "ui/install_tree.h"
#include "ui/menu_page.h"
#include "ui/picture_button.h"
#include "ui/program.h"

#include <QLabel>
#include <QTest>
#include <gtest/gtest.h>

using namespace base;
using frame::Page;
using platform::Answer;

namespace {

/// The whole program over a scripted desktop.
class MainWindowTest : public ::testing::Test {
protected:
    void start() {
        ASSERT_EQ(program.start(), 0);
        ASSERT_TRUE(program.running());
        window().resize(1280, 720);
        QCoreApplication::processEvents();
    }

    ui::MainWindow& window() { return program.window(); }
    ui::PageArea& pages() { return window().pages(); }

    static ui::PictureButton& button(QWidget& in, const QString& label) {
        for (ui::PictureButton* found : in.findChildren<ui::PictureButton*>())
            if (found->accessibleName() == label)
                return *found;
        throw std::out_of_range(label.toStdString());
    }
    void click(QWidget& in, const QString& label) { QTest::mouseClick(&button(in, label), Qt::LeftButton); }
    void open(const QString& label) { click(window(), label); }

    InstallTree tree;
    support::FakeHost host;
    ui::Program program{host, tree.programs};
};

const support::Shown question{u"終了しますか？"_s, u"終了"_s, platform::Buttons::YesNo};

} // namespace

TEST_F(MainWindowTest, TheTopButtonsOpenTheMenusOneAtATime) {
    start();
    open(u"集計表"_s);
    EXPECT_EQ(pages().currentWidget()->windowTitle(), u"集計メインページ"_s);
    open(u"マスター"_s);
    EXPECT_EQ(pages().currentWidget()->windowTitle(), u"マスター設定"_s);
    EXPECT_FALSE(pages().is_open(Page::rov_00));
    click(*pages().page(Page::mst_00), u"閉じる"_s);
    EXPECT_FALSE(pages().is_open(Page::mst_00));
    open(u"ヘルプ"_s);
    ASSERT_EQ(host.opened.size(), 1);
    EXPECT_TRUE(host.opened.first().endsWith(u"/rovena100/help/index.html"_s));
}

TEST_F(MainWindowTest, AButtonShowsItsOtherPictureWhilePressedAndWorksByKeyboard) {
    start();
    ui::PictureButton& masters = button(window(), u"マスター"_s);
    EXPECT_EQ(masters.size() * 2, QImage(tree.pictures + u"/botan/top_mst.BMP"_s).size());
    const QImage up = masters.grab().toImage();
    QTest::mousePress(&masters, Qt::LeftButton);
    EXPECT_NE(masters.grab().toImage(), up);
    QTest::mouseMove(&masters, QPoint(-20, -20));
    QTest::mouseRelease(&masters, Qt::LeftButton, {}, QPoint(-20, -20));
    EXPECT_EQ(masters.grab().toImage(), up);
    EXPECT_FALSE(pages().is_open(Page::mst_00)) << "let go outside";

    masters.setFocus(Qt::TabFocusReason);
    EXPECT_NE(masters.grab().toImage(), up) << "the focus shows";
    QTest::keyClick(&masters, Qt::Key_Space);
    EXPECT_TRUE(pages().is_open(Page::mst_00));
    ui::PictureButton& reports = button(window(), u"集計表"_s);
    QTest::keyClick(&reports, Qt::Key_Return);
    EXPECT_TRUE(pages().is_open(Page::rov_00));
}

TEST_F(MainWindowTest, EachButtonOfTheMastersOpensItsPage) {
    start();
    for (const auto& [label, caption] : {std::pair(u"社員"_s, u"社員マスター"_s), {u"勤務種類"_s, u"勤務種類"_s},
             {u"勤務タイプ時間設定"_s, u"勤務時間設定"_s}, {u"社員勤務タイプ設定"_s, u"社員勤務タイプ設定"_s},
             {u"システム"_s, u"基本情報"_s}, {u"休暇・出勤"_s, u"休暇"_s}}) {
        open(u"マスター"_s);
        click(*pages().page(Page::mst_00), label);
        QWidget* page = pages().currentWidget();
        EXPECT_EQ(page->windowTitle(), caption);
        EXPECT_TRUE(page->isAncestorOf(QApplication::focusWidget())) << label.toStdString();
        click(*page, u"閉じる"_s);
        EXPECT_TRUE(pages().is_open(Page::mst_00));
    }
}

TEST_F(MainWindowTest, TheExitButtonAsksOnceAndCloses) {
    start();
    host.answers = {Answer::No};
    open(u"終了"_s);
    EXPECT_TRUE(window().isVisible());
    open(u"終了"_s);
    EXPECT_FALSE(window().isVisible());
    EXPECT_EQ(host.shown, std::vector({question, question}));
}

TEST_F(MainWindowTest, TheCloseBoxAsksAndNoKeepsThePage) {
    start();
    open(u"マスター"_s);
    host.answers = {Answer::No};
    EXPECT_FALSE(window().close());
    EXPECT_TRUE(pages().is_open(Page::mst_00));
    EXPECT_TRUE(window().close());
    EXPECT_FALSE(pages().is_open(Page::mst_00));
    EXPECT_EQ(host.shown, std::vector({question, question}));
}

TEST_F(MainWindowTest, TheStateOfTheLinkShowsInTheBand) {
    start();
    window().form().show_link_state(u"●"_s);
    const auto labels = window().findChildren<QLabel*>();
    EXPECT_TRUE(std::ranges::any_of(labels, [](const QLabel* label) { return label->text() == u"●"_s; }));
}

TEST_F(MainWindowTest, NothingOnAMenuIsCutOffAtAnySize) {
    start();
    for (const QSize size : {window().minimumSize(), QSize(1280, 720), QSize(1366, 768), QSize(1920, 1080)}) {
        window().resize(size);
        for (const QString& top : {u"集計表"_s, u"マスター"_s}) {
            open(top);
            QCoreApplication::processEvents();
            const QWidget* page = pages().currentWidget();
            for (const QWidget* part : page->findChildren<QWidget*>()) {
                const QRect place(part->mapTo(page, QPoint()), part->size());
                EXPECT_TRUE(page->rect().contains(place)) << top.toStdString() << size.width();
                if (const auto* label = qobject_cast<const QLabel*>(part)) {
                    EXPECT_GE(label->height(), label->heightForWidth(label->width())) << label->text().toStdString();
                }
            }
        }
    }
}

TEST_F(MainWindowTest, AMissingPictureEndsTheStartWithItsName) {
    QFile::remove(tree.pictures);
    EXPECT_EQ(program.start(), 1);
    EXPECT_FALSE(program.running());
    ASSERT_EQ(host.shown.size(), 1U);
    EXPECT_TRUE(host.shown[0].text.contains(u"splash.bmp"_s)) << host.shown[0].text.toStdString();
}

TEST_F(MainWindowTest, ADamagedDatabaseEndsTheStartWithItsText) {
    const QString path = store::comsys_path(tree.settings);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(9000, 'x'));
    file.close();
    EXPECT_EQ(program.start(), 1);
    EXPECT_FALSE(program.running());
    ASSERT_EQ(host.shown.size(), 1U);
    EXPECT_TRUE(host.shown[0].text.contains(path)) << host.shown[0].text.toStdString();
}

TEST_F(MainWindowTest, GivingUpOnTheShareEndsWithoutAnError) {
    store::SettingTables(tree.settings).設定書込(u"losystem"_s, u"サーバーＰＣ"_s, u"\\\\main\\rovena"_s);
    host.share = [](const QString&, const QString&, const QString&) { return false; };
    EXPECT_EQ(program.start(), 0);
    EXPECT_FALSE(program.running());
}
