#include "platform/program_lock.h"

#include "base/literals.h"
#include "support/disk.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace base;
using namespace std::chrono_literals;
using platform::ProgramLock;

TEST(ProgramLock, ATitleIsHeldAsLongAsItsProgramKeepsIt) {
    QTemporaryDir dir;
    EXPECT_FALSE(ProgramLock::held(dir.path(), u"jyusinkanri"_s));
    {
        ProgramLock lock(dir.path(), u"jyusinkanri"_s);
        ASSERT_TRUE(lock.take(0ms));
        EXPECT_TRUE(ProgramLock::held(dir.path(), u"jyusinkanri"_s));
        EXPECT_FALSE(ProgramLock::held(dir.path(), u"other"_s));
        EXPECT_FALSE(ProgramLock(dir.path(), u"jyusinkanri"_s).take(0ms)) << "one at a time";
    }
    EXPECT_FALSE(ProgramLock::held(dir.path(), u"jyusinkanri"_s)) << "the file that stays behind holds nothing";
    EXPECT_TRUE(ProgramLock(dir.path(), u"jyusinkanri"_s).take(0ms));
}

TEST(ProgramLock, ManyShareATitleAndOneTakesItOnlyWhenNoneOfThemIsLeft) {
    const QTemporaryDir dir;
    const auto alone = [&] { return ProgramLock(dir.path(), u"rovena"_s).take(0ms); };
    {
        ProgramLock first(dir.path(), u"rovena"_s), second(dir.path(), u"rovena"_s);
        EXPECT_TRUE(first.share(0ms) && second.share(0ms));
        EXPECT_FALSE(alone());
    }
    ProgramLock restore(dir.path(), u"rovena"_s);
    EXPECT_TRUE(restore.take(0ms));
    EXPECT_FALSE(ProgramLock(dir.path(), u"rovena"_s).share(0ms));
}

TEST(ProgramLock, WhatNobodyHoldsAndCannotBeHadIsTold) {
    const QTemporaryDir dir;
    const QString none = dir.filePath(u"none"_s);
    EXPECT_FALSE(ProgramLock::held(none, u"jyusinkanri"_s));
    EXPECT_THROW(ProgramLock(none, u"jyusinkanri"_s).take(0ms), platform::LockError);
    EXPECT_THROW(ProgramLock(none, u"rovena"_s).share(0ms), platform::LockError);
#ifdef Q_OS_LINUX
    ASSERT_TRUE(QFile::link(u"round.lock"_s, dir.filePath(u"round.lock"_s))); // what can't be opened by whomever
    EXPECT_THROW(ProgramLock::held(dir.path(), u"round"_s), platform::LockError);
#endif
}

#ifdef Q_OS_LINUX
TEST(ProgramLock, AFileThatMayOnlyBeReadCanBeSharedAndNotTaken) {
    const QTemporaryDir dir;
    const QString file = dir.filePath(u"rovena.lock"_s);
    QFile::setPermissions(dir.path(), support::enterable);
    ASSERT_TRUE(QFile(file).open(QIODevice::WriteOnly) && QFile::setPermissions(file, support::readable));
    const support::AsNobody nobody;
    EXPECT_TRUE(ProgramLock(dir.path(), u"rovena"_s).share(0ms));
    EXPECT_THROW(ProgramLock(dir.path(), u"rovena"_s).take(0ms), platform::LockError);
}
#endif
