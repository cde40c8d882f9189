#include "common/day_picture.h"

#include "base/literals.h"
#include "base/numbers.h"

#include <gtest/gtest.h>

namespace common {

using namespace base;

namespace {

QString text(const QList<Span>& spans) {
    QStringList texts;
    for (const Span& span : spans)
        texts << time_to_text(minutes_to_time(span.start)) + u'-' + time_to_text(minutes_to_time(span.end));
    return texts.join(u' ');
}

/// A segment as its times, with the marks of the next day and of an overlap, and its colour if it has one.
QString text(const QList<Segment>& segments) {
    QStringList texts;
    for (const Segment& segment : segments)
        texts << text(QList{segment.span}) + (segment.next_day ? u"翌"_s : u""_s) +
                     (segment.overlaps ? u"重"_s : u""_s) +
                     (segment.colour < 0 ? u""_s : u'#' + digits(segment.colour));
    return texts.join(u' ');
}

/// The picture of bands told as "start-end-category", with the categories 4, 2 and 9.
DayPicture picture_of(const QString& bands) {
    QList<DayBand> day;
    for (const QString& band : bands.split(u' ')) {
        const QStringList cells = band.split(u'-');
        day << DayBand{0, cells[0], cells[1], Val(cells.value(2))};
    }
    return day_picture(day, {4, 2, 9});
}

} // namespace

TEST(DayPicture, BandsStandOnTheLineWithTheirOverlapsGapsAndColours) {
    const struct {
        QString bands, segments, gaps, overlaps;
    } cases[] = {
        {u"8:30-17:15 17:15-20:00"_s, u"8:30-17:15 17:15-20:00"_s, u""_s, u""_s},
        {u"8:00-12:00 11:00-13:00 20:00-21:00"_s, u"8:00-12:00重 11:00-13:00重 20:00-21:00"_s, u"13:00-20:00"_s,
            u"11:00-12:00"_s},
        // What overlaps in pieces is one overlap.
        {u"8:00-12:00 9:00-11:00 9:30-10:00"_s, u"8:00-12:00重 9:00-11:00重 9:30-10:00重"_s, u""_s, u"9:00-11:00"_s},
        // Over midnight: two pieces, and the early band of the same day is a day away.
        {u"22:00-5:00 0:00-6:00"_s, u"22:00-24:00 0:00-5:00翌 0:00-6:00"_s, u"6:00-22:00"_s, u""_s},
        {u"22:00-23:00 25:00-26:00"_s, u"22:00-23:00 1:00-2:00翌"_s, u"23:00-24:00 0:00-1:00"_s, u""_s},
        // One time alone counts 0:00 for the other; without length there is nothing to draw.
        {u"-9:00 22:00-"_s, u"0:00-9:00 22:00-24:00"_s, u"9:00-22:00"_s, u""_s},
        {u"9:00-9:00 --2"_s, u""_s, u""_s, u""_s},
        // The colour is the category's place in the master.
        {u"8:00-9:00-9 9:00-10:00-5 10:00-11:00 11:00-12:00-4"_s, u"8:00-9:00#2 9:00-10:00 10:00-11:00 11:00-12:00#0"_s,
            u""_s, u""_s},
    };
    for (const auto& c : cases) {
        const DayPicture picture = picture_of(c.bands);
        EXPECT_EQ(text(picture.segments), c.segments);
        EXPECT_EQ(text(picture.gaps), c.gaps) << c.bands.toStdString();
        EXPECT_EQ(text(picture.overlaps), c.overlaps) << c.bands.toStdString();
    }
}

} // namespace common
