#include "intake/stays.h"

#include "base/literals.h"
#include "intake/pairing.h"

#include <algorithm>

namespace intake {

using namespace base;

namespace {

constexpr minutes whole_day = std::chrono::hours(24);

QString clock_text(minutes time) {
    return time_to_text(minutes_to_time(time % whole_day));
}

/// Why the clock times can't stand in a day; empty if they can.
QString trouble_of(const std::optional<minutes>& in, const std::optional<minutes>& out) {
    if (!in || !out)
        return in ? u"退社時間がありません"_s : u"出社時間がありません"_s;
    if (*in < minutes(0) || *in >= whole_day)
        return u"出社時間が、その日の 0:00 から 23:59 までにありません"_s;
    if (*out == *in)
        return u"出社時間と退社時間が同じです"_s;
    if (*out < *in)
        return u"退社時間が出社時間より前です"_s;
    return *out - *in >= whole_day ? u"24時間以上の勤務は入力できません"_s : QString();
}

/// False where another line said something else.
bool agree(std::optional<minutes>& known, const std::optional<minutes>& time) {
    if (!known)
        known = time;
    return !time || known == time;
}

void add_line(Stay& stay, const Reading& reading, int index) {
    stay.readings << index;
    const bool same_in = agree(stay.in, reading.in);
    const bool same_out = agree(stay.out, reading.out);
    if (!same_in || !same_out)
        stay.reason = u"同じ日に、時刻の違う行があります"_s;
}

qint64 minute_of(const Reading& reading) {
    return reading.day.toJulianDay() * whole_day.count() + reading.stamp->count();
}

Stay stay_of(const StampGroup& group, int employee) {
    const qint64 day = group.first().at / whole_day.count();
    Stay stay{.employee = employee, .day = QDate::fromJulianDay(day)};
    for (const Stamp& stamp : group)
        stay.readings << stamp.line;
    const minutes first(group.first().at % whole_day.count());
    if (!is_alone(group)) {
        stay.in = first;
        stay.out = minutes(group.last().at - day * whole_day.count());
    } else {
        stay.reason = u"組になる打刻がありません"_s;
    }
    return stay;
}

bool is_whole(const Stay& stay) {
    return stay.in && stay.out;
}

void refuse_second_stays(QList<Stay>& stays) {
    for (Stay& stay : stays)
        for (Stay& other : stays)
            if (&stay != &other && stay.day == other.day && is_whole(stay) && is_whole(other))
                stay.reason = other.reason = u"1日に 2回の勤務があります"_s;
}

} // namespace

QList<Stay> stays_of_lines(const QList<Reading>& readings) {
    QList<Stay> stays;
    QHash<std::pair<int, qint64>, qsizetype> place;
    for (int i = 0; i < readings.size(); ++i) {
        const Reading& reading = readings[i];
        if (!reading.reason.isEmpty() || !reading.has_times())
            continue;
        const std::pair day(reading.employee, reading.day.toJulianDay());
        if (!place.contains(day)) {
            place.insert(day, stays.size());
            stays << Stay{.employee = reading.employee, .day = reading.day};
        }
        add_line(stays[place.value(day)], reading, i);
    }
    for (Stay& stay : stays)
        if (stay.reason.isEmpty())
            stay.reason = trouble_of(stay.in, stay.out);
    return stays;
}

QList<Stay> stays_of_stamps(const QList<Reading>& readings) {
    QHash<int, QList<Stamp>> stamps;
    for (int i = 0; i < readings.size(); ++i)
        if (const Reading& reading = readings[i]; reading.reason.isEmpty() && reading.stamp)
            stamps[reading.employee] << Stamp{minute_of(reading), reading.direction, i};
    QList<int> employees = stamps.keys();
    std::ranges::sort(employees);
    QList<Stay> all;
    for (const int employee : employees) {
        QList<Stay> stays;
        for (const StampGroup& group : paired(stamps[employee]))
            stays << stay_of(group, employee);
        refuse_second_stays(stays);
        all << stays;
    }
    return all;
}

ClockCells cells_of(const Stay& stay) {
    return {clock_text(*stay.in), clock_text(*stay.out)};
}

} // namespace intake
