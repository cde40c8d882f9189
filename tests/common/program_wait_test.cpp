#include "common/program_wait.h"

#include "base/literals.h"
#include "support/fake_host.h"

#include <gtest/gtest.h>

using namespace base;
using common::Wait;

namespace {

class ProgramWait : public ::testing::Test {
protected:
    Wait wait() { return common::ウィンドウ終了待ち(host, u"jyusinkanri"_s, u"/srv/exe"_s); }
    qint64 waited() { return start.secsTo(host.clock); }

    support::FakeHost host;
    const QDateTime start = host.clock;
};

} // namespace

TEST_F(ProgramWait, TheWaitEndsWithTheProgram) {
    host.running.insert(u"jyusinkanri"_s);
    host.on_yield = [this] {
        if (waited() >= 3)
            host.running.clear();
    };
    EXPECT_EQ(wait(), Wait::Ended);
    EXPECT_EQ(waited(), 3);
}

TEST_F(ProgramWait, AfterFifteenSecondsTheProgramStillRuns) {
    host.running.insert(u"jyusinkanri"_s);
    EXPECT_EQ(wait(), Wait::StillRunning);
    EXPECT_EQ(waited(), 15);
}
