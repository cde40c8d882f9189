#include "common/program_wait.h"

#include "base/literals.h"
#include "support/fake_host.h"

#include <gtest/gtest.h>

using namespace base;
using common::Wait;

TEST(ProgramWait, EndsWithTheProgramOrAfterFifteenSecondsWhateverIsDoneToTheClock) {
    for (const auto& [ends_after, seconds, result] : {std::tuple(3, 3, Wait::Ended), {20, 15, Wait::StillRunning}}) {
        support::FakeHost host;
        const auto seconds_gone = [&host, start = host.steady] {
            return (host.steady - start) / std::chrono::seconds(1);
        };
        host.running.insert(u"jyusinkanri"_s);
        host.on_yield = [&, after = ends_after] {
            host.clock = host.clock.addMSecs(-500);
            if (seconds_gone() >= after)
                host.running.clear();
        };
        EXPECT_EQ(common::ウィンドウ終了待ち(host, u"jyusinkanri"_s, u"/srv/exe"_s), result);
        EXPECT_EQ(seconds_gone(), seconds);
    }
}
