#pragma once

// A day's bands as a picture: pieces on a line from 0:00 to 24:00, and where bands overlap or leave a gap. It only
// tells what the bands say; it changes no rule.
//
// Overlaps and gaps are those of the working day, which runs on past midnight: a band from 22:00 to 5:00 and one from
// 0:00 to 6:00 lie a day apart, though their pieces share a place on the line.

#include "base/time.h"

#include <QList>
#include <QString>

namespace common {

/// A band as a screen has it. The times are texts of a cell, "8:30" or "830".
struct DayBand {
    int number; ///< shown in its piece; 0 for one that has none
    QString start;
    QString end;
    qint64 category; ///< 0 none
};

struct Span {
    base::minutes start{0};
    base::minutes end{0};
    friend bool operator==(const Span&, const Span&) = default;
};

/// One piece of a band, from 0:00 to 24:00 at most. A band over midnight has two, the second at the head of the line.
struct Segment {
    int band;        ///< its number
    Span span;       ///< on the line
    qint64 category; ///< number of the work category; 0 none
    int colour;      ///< place of the category in the master, from 0; -1 none or no longer there
    bool next_day;   ///< the piece lies on the next day
    bool overlaps;   ///< its band shares time with another one
};

struct DayPicture {
    QList<Segment> segments; ///< in order of the bands
    QList<Span> gaps;        ///< time between the first start and the last end that no band covers, on the line
    QList<Span> overlaps;    ///< time that more than one band covers, on the line
};

/// A band is drawn if its start or its end is filled, an empty one counting as 0:00; a band without length isn't drawn.
/// `categories` are the numbers of the master in its order.
DayPicture day_picture(const QList<DayBand>& bands, const QList<qint64>& categories);

} // namespace common
