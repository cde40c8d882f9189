#include "platform/crash.h"

#include "base/literals.h"

#include <QDir>
#include <gtest/gtest.h>
#include <stdexcept>

using namespace base;

#ifdef Q_OS_WIN

// The program that crashes is this one, started anew, so the folder has a name that both know.
TEST(Crash, LeavesADumpAndNothingElse) {
    const QString folder = QDir::tempPath() + u"/rovena-crash-test"_s;
    for (const bool thrown : {false, true}) {
        QDir(folder).removeRecursively();
        ASSERT_TRUE(QDir().mkpath(folder));
        const auto crash = [&] {
            platform::leave_dump_in(folder);
            if (thrown)
                [&]() noexcept { throw std::runtime_error("nobody takes it"); }();
            *static_cast<volatile int*>(nullptr) = 1;
        };
        EXPECT_DEATH(crash(), "");
        const QStringList left = QDir(folder).entryList(QDir::Files);
        ASSERT_EQ(left.size(), 1) << thrown;
        EXPECT_TRUE(left[0].startsWith(u"platform_test-"_s) && left[0].endsWith(u".dmp"_s)) << left[0].toStdString();
        QFile dump(folder + u'/' + left[0]);
        EXPECT_TRUE(dump.open(QIODevice::ReadOnly) && dump.read(4) == "MDMP");
    }
    QDir(folder).removeRecursively();
}

#endif
