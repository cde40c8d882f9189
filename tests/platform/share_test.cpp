#include "platform/share.h"

#include "base/literals.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace base;

#ifndef Q_OS_WIN

TEST(Share, AShareCountsAsReachedWhenItsDataIsThere) {
    QTemporaryDir dir;
    const QString share = u'\\' + QDir::toNativeSeparators(dir.path()).replace(u'/', u'\\');
    EXPECT_FALSE(platform::connect_share(share, u"clerk"_s, u"word"_s)) << "a folder that nothing is mounted on";
    ASSERT_TRUE(QDir(dir.path()).mkdir(u"comdata"_s));
    EXPECT_TRUE(platform::connect_share(share, u"clerk"_s, u"word"_s));
    EXPECT_FALSE(platform::connect_share(u"\\\\nobody\\nothing"_s, {}, {}));
}

#endif
