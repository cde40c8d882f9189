#include "frame/doorbell.h"

#include "base/literals.h"
#include "platform/screen.h"
#include "support/stored.h"

#include <QEventLoop>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <thread>

using namespace base;
using namespace std::chrono_literals;
using frame::Doorbell;

namespace {

/// Starts on a thread of its own, so that whoever is there before can answer; whether it goes on.
bool goes_on(const QString& folder) {
    bool on = false;
    QEventLoop events;
    std::thread start([&] {
        on = Doorbell(folder, u"rovena"_s).comes_in(60s);
        QMetaObject::invokeMethod(&events, &QEventLoop::quit, Qt::QueuedConnection);
    });
    events.exec();
    start.join();
    return on;
}

} // namespace

TEST(Doorbell, IsOfOneProgramFolderOnOneScreen) {
    const QTemporaryDir one, other;
    const QString name = frame::doorbell_name(one.path());
    EXPECT_EQ(frame::doorbell_name(one.path() + u"/."_s), name);
    EXPECT_NE(frame::doorbell_name(other.path()), name);
    const QByteArray screen = qgetenv("DISPLAY");
    qputenv("DISPLAY", ":77");
    EXPECT_NE(frame::doorbell_name(one.path()), name);
    qputenv("DISPLAY", screen);
    EXPECT_EQ(frame::doorbell_name(one.path()), name);
    EXPECT_FALSE(platform::own_folder().isEmpty());
}

TEST(Doorbell, WhoWasHereComesUpUnlessItIsDeadOrBusyOrHasLeft) {
    const QTemporaryDir dir;
    support::put_bytes(dir.filePath(u"rovena"_s), "left of one that was killed");
    int rings = 0;
    Doorbell first(dir.path(), u"rovena"_s);
    first.rung = [&] { ++rings; };
    EXPECT_TRUE(first.comes_in(0ms));
    EXPECT_FALSE(goes_on(dir.path()));
    EXPECT_EQ(rings, 1);
    EXPECT_TRUE(Doorbell(dir.path(), u"other"_s).comes_in(0ms));
    EXPECT_TRUE(Doorbell(dir.path(), u"rovena"_s).comes_in(1ms)) << "nobody answers here";
    first.leave();
    EXPECT_TRUE(goes_on(dir.path()));
    EXPECT_TRUE(Doorbell(dir.filePath(u"none"_s), u"rovena"_s).comes_in(0ms));
}
