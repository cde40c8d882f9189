#include "ui/main_window.h"

#include "platform/paths.h"
#include "store/silence.h"
#include "support/stored.h"
#include "ui/install_tree.h"
#include "ui/pages/backup_panel.h"
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
    /// A start ends with the status; what it told.
    QString refused(int status) {
        ui::Program started(host, programs);
        EXPECT_EQ(started.start(), status);
        EXPECT_FALSE(started.running());
        const auto told = std::exchange(host.shown, {});
        return told.size() == 1 ? told[0].text : QString();
    }

    ui::MainWindow& window() { return program.window(); }
    ui::PageArea& pages() { return window().pages(); }

    ui::PictureButton& button(const QString& label) {
        for (ui::PictureButton* found : window().findChildren<ui::PictureButton*>())
            if (found->accessibleName() == label)
                return *found;
        throw std::out_of_range(label.toStdString());
    }

    ui::Program program{host, programs};
};

} // namespace

TEST_F(MainWindowTest, AButtonShowsItsOtherPictureWhilePressedAndWorksByKeyboardAndTheBandShowsTheLink) {
    start();
    ui::PictureButton& masters = button(u"マスター"_s);
    EXPECT_EQ(masters.size() * 2, QImage(pictures + u"/botan/top_mst.BMP"_s).size());
    const QImage up = masters.grab().toImage();
    QTest::mousePress(&masters, Qt::LeftButton);
    EXPECT_NE(masters.grab().toImage(), up);
    QTest::mouseMove(&masters, QPoint(-20, -20));
    QTest::mouseRelease(&masters, Qt::LeftButton, {}, QPoint(-20, -20));
    EXPECT_EQ(masters.grab().toImage(), up);
    EXPECT_FALSE(pages().is_open(Page::mst_00)) << "let go outside";

    masters.setFocus(Qt::OtherFocusReason);
    EXPECT_NE(masters.grab().toImage(), up) << "the focus shows";
    QTest::keyClick(&masters, Qt::Key_Space);
    EXPECT_TRUE(pages().is_open(Page::mst_00));
    QTest::keyClick(&button(u"集計表"_s), Qt::Key_Return);
    EXPECT_TRUE(pages().is_open(Page::rov_00));
    window().form().show_link_state(u"●"_s);
    const auto labels = window().findChildren<QLabel*>();
    EXPECT_TRUE(std::ranges::any_of(labels, [](const QLabel* label) { return label->text() == u"●"_s; }));
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

TEST_F(MainWindowTest, SaysThatADataServerIsWaitedForAsLongAsThatLasts) {
    start();
    QTest::qWait(0);
    const QImage before = window().grab().toImage();
    {
        store::Silence silence;
        EXPECT_EQ(window().grab().toImage(), before);
        silence.is_long();
        EXPECT_NE(window().grab().toImage(), before);
    }
    EXPECT_EQ(window().grab().toImage(), before);
}

TEST_F(MainWindowTest, AStartThatCantGoOnEndsAndSaysWhy) {
    const QString damaged = store::comsys_path(settings);
    const QByteArray whole = support::bytes_of(damaged);
    {
        platform::ProgramLock restore(store::data_folder(settings), u"rovena"_s);
        ASSERT_TRUE(restore.take(std::chrono::milliseconds(0)));
        EXPECT_TRUE(refused(1).contains(u"復元中"_s));
    }
    support::put_bytes(damaged, QByteArray(9000, 'x'));
    EXPECT_TRUE(refused(1).contains(platform::native(damaged)));
    support::put_bytes(damaged, whole);
    host.share = [](const QString&, const QString&, const QString&) { return false; };
    tables.設定書込(u"losystem"_s, u"サーバーＰＣ"_s, u"\\\\main\\rovena"_s);
    refused(0);
    tables.設定書込(u"losystem"_s, u"サーバーＰＣ"_s, QString());
    QDir(pictures).removeRecursively();
    EXPECT_TRUE(refused(1).contains(u"splash.bmp"_s));
}
