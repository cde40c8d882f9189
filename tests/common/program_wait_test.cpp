#include "common/program_wait.h"

#include "base/literals.h"
#include "support/fake_host.h"

#include <gtest/gtest.h>

using namespace base;
using common::Wait;

TEST(ProgramWait, EndsWithTheProgramOrAfterFifteenSeconds) {
    for (const auto& [ends_after, seconds, result] : {std::tuple(3, 3, Wait::Ended), {20, 15, Wait::StillRunning}}) {
        support::FakeHost host;
        const QDateTime start = host.clock;
        host.running.insert(u"jyusinkanri"_s);
        host.on_yield = [&host, start, after = ends_after] {
            if (start.secsTo(host.clock) >= after)
                host.running.clear();
        };
        EXPECT_EQ(common::ウィンドウ終了待ち(host, u"jyusinkanri"_s, u"/srv/exe"_s), result);
        EXPECT_EQ(start.secsTo(host.clock), seconds);
    }
}
