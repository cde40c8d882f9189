#include "support/person.h"
#include "ui/pages/help_window.h"
#include "ui/qt_host.h"

#include <QApplication>
#include <QDir>
#include <QScrollBar>
#include <QTextBrowser>
#include <gtest/gtest.h>

namespace {

ui::HelpWindow* shown() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* help = qobject_cast<ui::HelpWindow*>(window); help && help->isVisible())
            return help;
    return nullptr;
}

} // namespace

TEST(HelpWindow, ShowsEachPageThatNoBrowserOpensInItsWidthAndEscapeClosesIt) {
    const QByteArray path = qgetenv("PATH");
    const auto back = qScopeGuard([&] { qputenv("PATH", path); });
    qputenv("PATH", ""); // no opener
    ui::QtHost host;
    for (const QFileInfo& page : QDir(QStringLiteral(ROVENA_HELP)).entryInfoList({QStringLiteral("*.htm*")})) {
        SCOPED_TRACE(page.fileName().toStdString());
        EXPECT_TRUE(host.open_document(QStringLiteral("file://localhost") + page.filePath()));
        ui::HelpWindow* const window = shown();
        ASSERT_TRUE(window);
        EXPECT_TRUE(window->windowTitle().endsWith(QStringLiteral("就業録ヘルプ")));
        EXPECT_EQ(window->browser()->horizontalScrollBar()->maximum(), 0);
        support::bring_up(*window, window->size());
        QTest::keyClick(window->browser(), Qt::Key_Escape);
        EXPECT_FALSE(window->isVisible());
    }
}
