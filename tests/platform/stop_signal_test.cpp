#include "platform/stop_signal.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <gtest/gtest.h>
#include <thread>

// A stop that a service is told comes in a thread of the system's own.
TEST(StopSignal, IsToldInTheEventLoopWhicheverThreadGivesIt) {
    QEventLoop loop;
    std::thread::id told_in;
    const platform::StopSignal stop([&] {
        told_in = std::this_thread::get_id();
        loop.quit();
    });
    QTimer::singleShot(std::chrono::minutes(1), &loop, &QEventLoop::quit);
    std::thread(platform::StopSignal::give).join();
    loop.exec();
    EXPECT_EQ(told_in, std::this_thread::get_id());
}
