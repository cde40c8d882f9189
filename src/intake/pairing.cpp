#include "intake/pairing.h"

#include <algorithm>
#include <limits>

namespace intake {

using base::minutes;
using namespace std::chrono_literals;

namespace {

/// The price of a reading in minutes: a stay costs its length and something for being one, so that going out at noon
/// doesn't make two of it, and a stamp alone costs more than all but very long stays.
constexpr qint64 price_of_stay = minutes(5h).count();
constexpr qint64 price_of_night = minutes(3h).count();
constexpr qint64 price_alone = minutes(14h).count();
constexpr qint64 price_of_middle = minutes(1h).count(); ///< a stamp

constexpr qint64 longest_stay = minutes(20h).count();
constexpr qint64 longest_with_middle = minutes(14h).count(); ///< longer ones have more stamps in them by mistake only
constexpr qint64 a_day = minutes(24h).count();
constexpr qint64 never = std::numeric_limits<qint64>::max() / 2;

/// A stamp and those that follow it at once.
using Press = QList<Stamp>;

QList<Press> presses_of(const QList<Stamp>& stamps) {
    QList<Press> presses;
    for (const Stamp& stamp : stamps) {
        const bool again = !presses.isEmpty() && stamp.at - presses.last().first().at <= double_stamp.count() &&
                           stamp.direction == presses.last().first().direction;
        if (!again)
            presses << Press();
        presses.last() << stamp;
    }
    return presses;
}

bool may_be_clock_in(const Press& press) {
    return press.first().direction != Direction::Out;
}

bool may_be_clock_out(const Press& press) {
    return press.first().direction != Direction::In;
}

/// What it costs that the presses from one to another are one stay.
qint64 price(const QList<Press>& presses, qsizetype first, qsizetype last) {
    if (first == last)
        return price_alone;
    const qint64 from = presses[first].first().at;
    const qint64 stay = presses[last].first().at - from;
    const qint64 middle = last - first - 1;
    if (!may_be_clock_in(presses[first]) || !may_be_clock_out(presses[last]) || stay > longest_stay ||
        (middle > 0 && stay > longest_with_middle))
        return never;
    const qint64 night = from / a_day != (from + stay) / a_day ? price_of_night : 0;
    return price_of_stay + stay + night + middle * price_of_middle;
}

/// For each press the first one of the group that it ends, in the cheapest reading of all up to it.
QList<qsizetype> cheapest(const QList<Press>& presses) {
    QList<qint64> total{0};
    QList<qsizetype> first;
    for (qsizetype last = 0; last < presses.size(); ++last) {
        total << never;
        first << last;
        const qint64 at = presses[last].first().at;
        for (qsizetype i = last; i >= 0 && at - presses[i].first().at <= longest_stay; --i)
            if (const qint64 sum = total[i] + price(presses, i, last); sum < total.last()) {
                total.last() = sum;
                first.last() = i;
            }
    }
    return first;
}

} // namespace

bool is_alone(const StampGroup& group) {
    return group.last().at - group.first().at <= double_stamp.count();
}

QList<StampGroup> paired(QList<Stamp> stamps) {
    std::ranges::stable_sort(stamps, {}, &Stamp::at);
    const QList<Press> presses = presses_of(stamps);
    const QList<qsizetype> first = cheapest(presses);
    QList<StampGroup> groups;
    for (qsizetype last = presses.size() - 1; last >= 0; last = first[last] - 1) {
        StampGroup group;
        for (qsizetype i = first[last]; i <= last; ++i)
            group << presses[i];
        groups.prepend(group);
    }
    return groups;
}

} // namespace intake
