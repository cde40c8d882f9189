#include "platform/paths.h"

#include "base/literals.h"
#include "platform/share.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace base;

TEST(Paths, ARootWithTwoBackslashesIsAShare) {
    for (const QString& share : {u"\\\\main\\data"_s, u"x\\\\y"_s})
        EXPECT_TRUE(platform::is_share(share)) << share.toStdString();
    for (const QString& folder : {u"\\main\\data"_s, u"C:\\Program Files\\meridan\\qn"_s, QString(), u"/srv/data"_s})
        EXPECT_FALSE(platform::is_share(folder)) << folder.toStdString();
}

#ifndef Q_OS_WIN

TEST(Paths, ARootWithTwoSlashesIsAShareToo) {
    EXPECT_TRUE(platform::is_share(u"//main/data"_s));
}

TEST(Paths, AShareCountsAsReachedWhenItsDataIsThere) {
    const QTemporaryDir dir;
    const QString share = u'\\' + QDir::toNativeSeparators(dir.path()).replace(u'/', u'\\');
    EXPECT_FALSE(platform::connect_share(share, u"clerk"_s, u"word"_s)) << "a folder that nothing is mounted on";
    ASSERT_TRUE(QDir(dir.path()).mkdir(u"comdata"_s));
    EXPECT_TRUE(platform::connect_share(share, u"clerk"_s, u"word"_s));
    EXPECT_FALSE(platform::connect_share(u"\\\\nobody\\nothing"_s, {}, {}));
}

TEST(Paths, TheDriveIsTheNearestFolderUpwardsThatHoldsTheInstallTree) {
    QTemporaryDir dir;
    const QString tree = dir.path() + u"/Program Files/meridan/qn"_s, programs = tree + u"/rovena100"_s;
    ASSERT_TRUE(QDir().mkpath(programs));
    EXPECT_EQ(platform::install_drive(programs), dir.path());
    EXPECT_EQ(platform::install_root(platform::install_drive(programs)), tree);

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
