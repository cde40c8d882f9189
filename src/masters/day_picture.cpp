#include "masters/day_picture.h"

#include "base/numbers.h"
#include "masters/week_buffer.h"

#include <algorithm>

namespace masters {

using namespace base;

namespace {

constexpr minutes day_length(24 * 60);

/// A band as the working day sees it: it may end after 24:00.
struct DayBand {
    int row;
    Span span;
    qint64 category;
};

struct Piece {
    Span span;
    bool next_day;
};

Span span_of(const Sheet& hyou, int row) {
    const ClockNumber start = clock_of(hyou(row, band_col::start));
    const minutes begin = std::max(minutes(0), time_to_minutes(start));
    const minutes end = end_minutes(start, clock_of(hyou(row, band_col::end)));
    return {begin, std::min(end, begin + day_length)};
}

QList<DayBand> bands_of(const Sheet& hyou) {
    QList<DayBand> bands;
    for (int row = hyou.FixedRows(); row < hyou.Rows(); ++row) {
        const Span span = span_of(hyou, row);
        if (span.end > span.start)
            bands << DayBand{row, span, Val(hyou(row, band_col::category))};
    }
    return bands;
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

bool overlaps_another(const QList<DayBand>& bands, const DayBand& band) {
    return std::ranges::any_of(
        bands, [&](const DayBand& other) { return other.row != band.row && share_time(other.span, band.span); });
}

QList<minutes> bounds_of(const QList<DayBand>& bands) {
    QList<minutes> bounds;
    for (const DayBand& band : bands)
        bounds << band.span.start << band.span.end;
    std::ranges::sort(bounds);
    return bounds;
}

/// The time between the first start and the last end that is covered by a number of bands that `wanted` accepts.
template <typename Wanted>
QList<Span> covered(const QList<DayBand>& bands, Wanted wanted) {
    QList<Span> spans;
    const QList<minutes> bounds = bounds_of(bands);
    for (qsizetype i = 0; i + 1 < bounds.size(); ++i) {
        const Span span{bounds[i], bounds[i + 1]};
        const auto depth =
            std::ranges::count_if(bands, [&](const DayBand& band) { return share_time(band.span, span); });
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

DayPicture day_picture(const Sheet& hyou, const QList<qint64>& categories) {
    const QList<DayBand> bands = bands_of(hyou);
    DayPicture picture;
    for (const DayBand& band : bands)
        for (const Piece& piece : pieces_of(band.span))
            picture.segments << Segment{band.row, piece.span, band.category,
                static_cast<int>(categories.indexOf(band.category)), piece.next_day, overlaps_another(bands, band)};
    picture.gaps = on_the_line(covered(bands, [](auto depth) { return depth == 0; }));
    picture.overlaps = on_the_line(covered(bands, [](auto depth) { return depth > 1; }));
    return picture;
}

} // namespace masters
