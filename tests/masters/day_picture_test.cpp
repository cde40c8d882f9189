#include "masters/day_picture.h"

#include "masters/company.h"
#include "masters/week_buffer.h"

namespace masters {

namespace {

struct Times {
    QString start;
    QString end;
    QString category;
};

QString text(Span span) {
    return time_to_text(minutes_to_time(span.start)) + u'-' + time_to_text(minutes_to_time(span.end));
}

QString text(const QList<Span>& spans) {
    QStringList texts;
    for (const Span& span : spans)
        texts << text(span);
    return texts.join(u' ');
}

/// A segment as its times, with the marks of the next day and of an overlap.
QString text(const QList<Segment>& segments) {
    QStringList texts;
    for (const Segment& segment : segments)
        texts << text(segment.span) + (segment.next_day ? u"翌"_s : u""_s) + (segment.overlaps ? u"重"_s : u""_s);
    return texts.join(u' ');
}

DayPicture picture_of(const QList<Times>& bands) {
    Sheet hyou(1 + band_count, band_col::count);
    hyou.setFixed(1, 1);
    int row = 0;
    for (const Times& band : bands) {
        hyou(++row, band_col::start) = band.start;
        hyou(row, band_col::end) = band.end;
        hyou(row, band_col::category) = band.category;
    }
    return day_picture(hyou, {4, 2, 9});
}

} // namespace

TEST(DayPicture, BandsStandOnTheLineWithTheirOverlapsAndGaps) {
    struct Case {
        QList<Times> bands;
        QString segments, gaps, overlaps;
    };
    const Case cases[] = {
        {{{u"8:30"_s, u"17:15"_s, {}}, {u"17:15"_s, u"20:00"_s, {}}}, u"8:30-17:15 17:15-20:00"_s, u""_s, u""_s},
        {{{u"8:00"_s, u"12:00"_s, {}}, {u"11:00"_s, u"13:00"_s, {}}, {u"20:00"_s, u"21:00"_s, {}}},
            u"8:00-12:00重 11:00-13:00重 20:00-21:00"_s, u"13:00-20:00"_s, u"11:00-12:00"_s},
        // Over midnight: two pieces, and the early band of the same day is a day away.
        {{{u"22:00"_s, u"5:00"_s, {}}, {u"0:00"_s, u"6:00"_s, {}}}, u"22:00-24:00 0:00-5:00翌 0:00-6:00"_s,
            u"6:00-22:00"_s, u""_s},
        {{{u"22:00"_s, u"23:00"_s, {}}, {u"25:00"_s, u"26:00"_s, {}}}, u"22:00-23:00 1:00-2:00翌"_s,
            u"23:00-24:00 0:00-1:00"_s, u""_s},
        // One time alone counts 0:00 for the other; without length there is nothing to draw.
        {{{u""_s, u"9:00"_s, {}}, {u"22:00"_s, u""_s, {}}}, u"0:00-9:00 22:00-24:00"_s, u"9:00-22:00"_s, u""_s},
        {{{u"9:00"_s, u"9:00"_s, {}}, {u""_s, u""_s, u"2"_s}}, u""_s, u""_s, u""_s},
    };
    for (const Case& c : cases) {
        const DayPicture picture = picture_of(c.bands);
        EXPECT_EQ(text(picture.segments), c.segments);
        EXPECT_EQ(text(picture.gaps), c.gaps) << c.segments.toStdString();
        EXPECT_EQ(text(picture.overlaps), c.overlaps) << c.segments.toStdString();
    }
}

TEST(DayPicture, ACategoryIsColouredByItsPlaceInTheMaster) {
    const DayPicture picture = picture_of({{u"8:00"_s, u"9:00"_s, u"9"_s}, {u"9:00"_s, u"10:00"_s, u"5"_s},
        {u"10:00"_s, u"11:00"_s, u""_s}, {u"11:00"_s, u"12:00"_s, u"4"_s}});
    QList<int> colours;
    for (const Segment& segment : picture.segments)
        colours << segment.colour;
    EXPECT_EQ(colours, QList<int>({2, -1, -1, 0}));
}

} // namespace masters
