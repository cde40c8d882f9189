#include "base/literals.h"
#include "platform/paths.h"
#include "support/fake_host.h"
#include "ui/parts/picture_button.h"
#include "ui/program.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

using namespace base;

TEST(FirstStart, AnInstallationWithoutACompanyLeadsThroughTheWizardToTheMainFrame) {
    const QTemporaryDir drive;
    const QString bin = qEnvironmentVariable("ROVENA_BIN", QCoreApplication::applicationDirPath());
    ASSERT_EQ(QProcess::execute(bin + u"/rovena-install"_s,
                  {drive.path(), u"--assets"_s, bin + u"/../artwork"_s, u"--printer"_s, u"PDF"_s}),
        0);
    const QString folder = drive.path() + u"/Program Files/meridan/qn/rovena100/system/exe/exe"_s;
    support::FakeHost host;
    host.printer_names = {u"Office"_s, u"PDF"_s};

    ui::Program first(host, folder);
    ASSERT_EQ(first.start(), 0);
    ASSERT_TRUE(first.wizard());
    QTest::mouseClick(first.wizard()->botan(), Qt::LeftButton);
    EXPECT_FALSE(first.wizard()->isVisible());
    EXPECT_EQ(host.started, QStringList{platform::program_file(folder + u"/rovena.exe"_s)});

    ui::Program anew(host, folder);
    ASSERT_EQ(anew.start(), 0);
    EXPECT_FALSE(anew.wizard());
    EXPECT_TRUE(anew.window().isVisible());
    EXPECT_EQ(anew.session().tables.設定読込(u"losystem"_s, u"プリンター１"_s), u"PDF"_s);
    EXPECT_TRUE(host.shown.empty());
}
