#include "platform/crash.h"

#include "base/literals.h"

#include <QDir>
#include <gtest/gtest.h>
#include <stdexcept>

using namespace base;

#ifdef Q_OS_WIN

static void fail() {
    throw std::runtime_error("nobody takes it");
}

// The program that crashes is this one, started anew at the test, so the folder has a name that both know.
static void expect_a_dump(void (*crash)()) {
    const QString folder = QDir::tempPath() + u"/rovena-crash-test"_s;
    QDir(folder).removeRecursively();
    ASSERT_TRUE(QDir().mkpath(folder));
    const auto crash_there = [&] {
        platform::leave_dump_in(folder);
        crash();
    };
    EXPECT_DEATH(crash_there(), "");
    const QStringList left = QDir(folder).entryList(QDir::Files);
    ASSERT_EQ(left.size(), 1);
    EXPECT_TRUE(left[0].startsWith(u"platform_test-"_s) && left[0].endsWith(u".dmp"_s)) << left[0].toStdString();
    QFile dump(folder + u'/' + left[0]);
    EXPECT_TRUE(dump.open(QIODevice::ReadOnly) && dump.read(4) == "MDMP");
    dump.close();
    QDir(folder).removeRecursively();
}

TEST(Crash, OfTheProcessorLeavesADumpAndNothingElse) {
    expect_a_dump([] { *static_cast<volatile int*>(nullptr) = 1; });
}

TEST(Crash, OfAnExceptionThatNobodyTakesLeavesADumpAndNothingElse) {
    expect_a_dump([] { []() noexcept { fail(); }(); });
}

#endif
