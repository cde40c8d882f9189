#include "platform/paths.h"

#include "base/literals.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace base;

TEST(Paths, ARootWithTwoBackslashesIsAShare) {
    EXPECT_TRUE(platform::is_share(u"\\\\main\\data"_s));
    EXPECT_TRUE(platform::is_share(u"x\\\\y"_s)) << "wherever they stand";
    EXPECT_FALSE(platform::is_share(u"\\main\\data"_s));
    EXPECT_FALSE(platform::is_share(u"C:\\Program Files\\meridan\\qn"_s));
    EXPECT_FALSE(platform::is_share(QString()));
    EXPECT_FALSE(platform::is_share(u"/srv/data"_s)) << "a folder of this PC";
}

#ifndef Q_OS_WIN

TEST(Paths, ARootWithTwoSlashesIsAShareToo) {
    EXPECT_TRUE(platform::is_share(u"//main/data"_s));
}

TEST(Paths, TheDriveIsTheNearestFolderUpwardsThatHoldsTheInstallTree) {
    QTemporaryDir dir;
    const QString tree = dir.path() + u"/Program Files/meridan/qn"_s, programs = tree + u"/rovena100"_s;
    ASSERT_TRUE(QDir().mkpath(programs));
    EXPECT_EQ(platform::install_drive(programs), dir.path());
    EXPECT_EQ(platform::install_drive(programs) + platform::install_tail(), tree);

    const QString alone = dir.path() + u"/Program Files/elsewhere"_s;
    ASSERT_TRUE(QDir().mkpath(alone));
    EXPECT_EQ(platform::install_drive(alone), dir.path());

    QTemporaryDir bare;
    EXPECT_EQ(platform::install_drive(bare.path()), bare.path()) << "no install tree: the folder itself";
}

TEST(Paths, ProgramsLoseTheirExtension) {
    EXPECT_EQ(platform::program_file(u"/srv/exe/jyusinkanri.exe"_s), u"/srv/exe/jyusinkanri"_s);
    EXPECT_EQ(platform::program_file(u"/srv/exe/other"_s), u"/srv/exe/other"_s);
}

#endif
