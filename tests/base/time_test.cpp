#include "base/literals.h"
#include "base/time.h"

#include <gtest/gtest.h>

using namespace base;
using std::chrono::hours;

TEST(Time, DigitsBecomeTimeTextByTheirCount) {
    const std::pair<QString, QString> cases[] = {{u""_s, u""_s}, {u"5"_s, u"0:05"_s}, {u"830"_s, u"8:30"_s},
        {u"1230"_s, u"12:30"_s}, {u"12345"_s, u"123:45"_s}, {u"123456"_s, u"1234:56"_s}, {u"1234567"_s, u"1234567"_s},
        {u"8:30"_s, u"8:30"_s}, {u"0-30"_s, u"0:30"_s}};
    for (const auto& [digits, text] : cases)
        EXPECT_EQ(time_to_text(digits), text) << digits.toStdString();
}

TEST(Time, TimeTextBecomesItsClockNumber) {
    EXPECT_EQ(text_to_time(u"25:30") + u' ' + text_to_time(u"0:05"), u"2530 5"_s);
    EXPECT_EQ(text_to_time(u"") + text_to_time(u"830"), u"830"_s);
    EXPECT_EQ(clock_of(u"8:30"), ClockNumber{830});
    EXPECT_EQ(clock_of(u""), ClockNumber{0});
}

TEST(Time, ClockNumbersAndMinutesConvertBothWays) {
    for (int m = 0; m < 100 * 60; ++m)
        ASSERT_EQ(time_to_minutes(minutes_to_time(minutes(m))), minutes(m));
    EXPECT_EQ(minutes_to_time(minutes(1530)), ClockNumber{2530});
    EXPECT_EQ(time_to_minutes({12345}), hours(23) + minutes(45)) << "only the last four digits count";
}

TEST(Time, ASpanThatEndsBelowItsStartEndsOnTheNextDay) {
    EXPECT_EQ(end_minutes({2200}, {500}), hours(29));
    EXPECT_EQ(end_minutes({900}, {900}), hours(9));
    EXPECT_EQ(end_minutes({800}, {0}), hours(24));
}

TEST(Time, ANegativeTimeIsReadByPlace) {
    EXPECT_EQ(minutes_to_time(minutes(-90)), ClockNumber{-130});
    EXPECT_EQ(time_to_text(ClockNumber{-130}), u"-1:30"_s);
    EXPECT_EQ(time_to_minutes({-130}), minutes(-30));
}
