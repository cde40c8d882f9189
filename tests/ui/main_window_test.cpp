#include "ui/main_window.h"

#include "frame/menus.h"
#include "support/stored.h"
#include "ui/install_tree.h"
#include "ui/pages/backup_panel.h"
#include "ui/pages/menu_page.h"
#include "ui/parts/picture_button.h"
#include "ui/program.h"

#include <QLabel>
#include <QProgressBar>
#include <QTest>
#include <gtest/gtest.h>

using namespace base;
using frame::Page;

namespace {

/// The whole program over a scripted desktop.
struct MainWindowTest : ::testing::Test, InstallTree {
    void start() {
        ASSERT_EQ(program.start(), 0);
        ASSERT_TRUE(program.running());
        window().resize(1280, 720);
        QCoreApplication::processEvents();
    }
    /// The start ends with the status; what it told.
    QString refused(int status) {
        EXPECT_EQ(program.start(), status);
        EXPECT_FALSE(program.running());
        return host.shown.size() == 1 ? host.shown[0].text : QString();
    }

    ui::MainWindow& window() { return program.window(); }
    ui::PageArea& pages() { return window().pages(); }

    static ui::PictureButton& button(QWidget& in, const QString& label) {
        for (ui::PictureButton* found : in.findChildren<ui::PictureButton*>())
            if (found->accessibleName() == label)
                return *found;
        throw std::out_of_range(label.toStdString());
    }
    void open(const QString& label) { QTest::mouseClick(&button(window(), label), Qt::LeftButton); }

    ui::Program program{host, programs};
};

} // namespace

TEST_F(MainWindowTest, AButtonShowsItsOtherPictureWhilePressedAndWorksByKeyboard) {
    start();
    ui::PictureButton& masters = button(window(), u"マスター"_s);
    EXPECT_EQ(masters.size() * 2, QImage(pictures + u"/botan/top_mst.BMP"_s).size());
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
    QTest::keyClick(&button(window(), u"集計表"_s), Qt::Key_Return);
    EXPECT_TRUE(pages().is_open(Page::rov_00));
    EXPECT_FALSE(pages().is_open(Page::mst_00));
}

TEST_F(MainWindowTest, ABackupShowsHowFarItIsAndADatabaseInUseDoesNotKeepTheProgramFromEnding) {
    start();
    store::Database in_use = comsys();
    const store::Transaction reading(in_use, store::Transaction::Lock::Read);
    in_use.has_table(u"syain"_s);
    QStringList steps;
    host.on_yield = [&] {
        const auto* panel = window().findChild<ui::BackupPanel*>();
        if (!panel || !panel->isVisible())
            return;
        const auto* text = panel->findChild<QLabel*>();
        EXPECT_GE(text->width(), text->sizeHint().width());
        steps << u"%1 %2"_s.arg(text->text()).arg(panel->findChild<QProgressBar*>()->value());
    };
    EXPECT_TRUE(window().close());
    EXPECT_EQ(steps.size(), 8);
    EXPECT_EQ(steps.value(1), u"バックアップ中... comsys.mdb 1"_s);
    EXPECT_FALSE(window().findChild<ui::BackupPanel*>());
    ASSERT_EQ(host.shown.size(), 3U);
    EXPECT_TRUE(host.shown[2].text.contains(u"comsys.mdb"_s)) << host.shown[2].text.toStdString();
}

TEST_F(MainWindowTest, TheStateOfTheLinkShowsInTheBand) {
    start();
    window().form().show_link_state(u"●"_s);
    const auto labels = window().findChildren<QLabel*>();
    EXPECT_TRUE(std::ranges::any_of(labels, [](const QLabel* label) { return label->text() == u"●"_s; }));
}

TEST_F(MainWindowTest, NothingOnAMenuIsCutOffAtAnySize) {
    start();
    for (const QSize size : {window().minimumSize(), QSize(1366, 768), QSize(1920, 1080)})
        for (const QString& top : {u"集計表"_s, u"マスター"_s}) {
            window().resize(size);
            open(top);
            QCoreApplication::processEvents();
            const QWidget* page = pages().currentWidget();
            for (const QWidget* part : page->findChildren<QWidget*>()) {
                const QRect place(part->mapTo(page, QPoint()), part->size());
                EXPECT_TRUE(page->rect().contains(place)) << top.toStdString() << size.width();
                const auto* label = qobject_cast<const QLabel*>(part);
                EXPECT_TRUE(!label || label->height() >= label->heightForWidth(label->width())) << size.width();
            }
        }
}

TEST_F(MainWindowTest, DoesNotStartWhileARestoreIsAtWork) {
    platform::ProgramLock restore(store::data_folder(settings), u"rovena"_s);
    ASSERT_TRUE(restore.take(std::chrono::milliseconds(0)));
    EXPECT_TRUE(refused(1).contains(u"復元中"_s));
}

TEST_F(MainWindowTest, AMissingPictureEndsTheStartWithItsName) {
    QFile::remove(pictures);
    EXPECT_TRUE(refused(1).contains(u"splash.bmp"_s));
}

TEST_F(MainWindowTest, ADamagedDatabaseEndsTheStartWithItsText) {
    support::put_bytes(store::comsys_path(settings), QByteArray(9000, 'x'));
    EXPECT_TRUE(refused(1).contains(store::comsys_path(settings)));
}

TEST_F(MainWindowTest, GivingUpOnTheShareEndsWithoutAnError) {
    tables.設定書込(u"losystem"_s, u"サーバーＰＣ"_s, u"\\\\main\\rovena"_s);
    host.share = [](const QString&, const QString&, const QString&) { return false; };
    refused(0);
}
