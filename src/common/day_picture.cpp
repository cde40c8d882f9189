#include "common/day_picture.h"

#include <algorithm>

namespace common {

using namespace base;

namespace {

constexpr minutes day_length(24 * 60);

/// A band as the working day sees it: it may end after 24:00.
struct DrawnBand {
    const DayBand* band;
    Span span;
};

struct Piece {
    Span span;
    bool next_day;
};

Span span_of(const DayBand& band) {
    const ClockNumber start = clock_of(band.start);
    const minutes begin = std::max(minutes(0), time_to_minutes(start));
    const minutes end = end_minutes(start, clock_of(band.end));
    return {begin, std::min(end, begin + day_length)};
}

QList<DrawnBand> drawn(const QList<DayBand>& bands) {
    QList<DrawnBand> with_length;
    for (const DayBand& band : bands)
        if (const Span span = span_of(band); span.end > span.start)
            with_length << DrawnBand{&band, span};
    return with_length;
}

/// The span cut at each midnight.
QList<Piece> pieces_of(Span span) {
    QList<Piece> pieces;
    for (minutes midnight(0); midnight < span.end; midnight += day_length) {
        const minutes start = std::max(span.start, midnight);
        const minutes end = std::min(span.end, midnight + day_length);
        if (start < end)
            pieces << Piece{{start - midnight, end - midnight}, midnight > minutes(0)};
    }
    return pieces;
}

bool share_time(Span a, Span b) {
    return a.start < b.end && b.start < a.end;
}

bool overlaps_another(const QList<DrawnBand>& bands, const DrawnBand& one) {
    return std::ranges::any_of(
        bands, [&](const DrawnBand& other) { return other.band != one.band && share_time(other.span, one.span); });
}

QList<minutes> bounds_of(const QList<DrawnBand>& bands) {
    QList<minutes> bounds;
    for (const DrawnBand& band : bands)
        bounds << band.span.start << band.span.end;
    std::ranges::sort(bounds);
    return bounds;
}

/// The time between the first start and the last end that is covered by a number of bands that `wanted` accepts.
template <typename Wanted>
QList<Span> covered(const QList<DrawnBand>& bands, Wanted wanted) {
    QList<Span> spans;
    const QList<minutes> bounds = bounds_of(bands);
    for (qsizetype i = 0; i + 1 < bounds.size(); ++i) {
        const Span span{bounds[i], bounds[i + 1]};
        const auto depth =
            std::ranges::count_if(bands, [&](const DrawnBand& band) { return share_time(band.span, span); });
        if (span.start == span.end || !wanted(depth))
            continue;
        if (!spans.isEmpty() && spans.back().end == span.start)
            spans.back().end = span.end;
        else
            spans << span;
    }
    return spans;
}

QList<Span> on_the_line(const QList<Span>& spans) {
    QList<Span> pieces;
    for (const Span& span : spans)
        for (const Piece& piece : pieces_of(span))
            pieces << piece.span;
    return pieces;
}

} // namespace

DayPicture day_picture(const QList<DayBand>& bands, const QList<qint64>& categories) {
    const QList<DrawnBand> on_picture = drawn(bands);
    DayPicture picture;
    for (const DrawnBand& one : on_picture)
        for (const Piece& piece : pieces_of(one.span))
            picture.segments << Segment{one.band->number, piece.span, one.band->category,
                static_cast<int>(categories.indexOf(one.band->category)), piece.next_day,
                overlaps_another(on_picture, one)};
    picture.gaps = on_the_line(covered(on_picture, [](auto depth) { return depth == 0; }));
    picture.overlaps = on_the_line(covered(on_picture, [](auto depth) { return depth > 1; }));
    return picture;
}

} // namespace common
