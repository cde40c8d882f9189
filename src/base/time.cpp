#include "base/time.h"

#include "base/numbers.h"
#include "base/text.h"

namespace base {

namespace {

/// A negative number is read by place like any other text, so its sign falls into the hours.
minutes minutes_by_place(QStringView four) {
    return minutes(Val(four.first(2)) * 60 + Val(four.last(2)));
}

QString hours_and_minutes(QStringView text, qsizetype hour_places) {
    return QString::number(Val(text.first(hour_places))) + u':' + text.last(2).toString();
}

} // namespace

minutes time_to_minutes(ClockNumber clock) {
    if (clock.value < 0)
        return minutes_by_place(last_four(QString::number(clock.value)));
    const qint64 four = clock.value % 10000;
    return minutes(four / 100 * 60 + four % 100);
}

minutes next_day_minutes(ClockNumber clock) {
    return time_to_minutes(clock) + std::chrono::days(1);
}

ClockNumber minutes_to_time(minutes time) {
    const auto hours = time.count() / 60;
    return {time.count() - 60 * hours + 100 * hours};
}

minutes end_minutes(ClockNumber start, ClockNumber end) {
    return end >= start ? time_to_minutes(end) : next_day_minutes(end);
}

QString time_to_text(QStringView digits) {
    if (digits.isEmpty() || digits.contains(u':') || digits.size() > 6)
        return digits.toString();
    if (digits.size() <= 4)
        return hours_and_minutes(last_four(digits), 2);
    return hours_and_minutes(digits, digits.size() - 2);
}

QString time_to_text(ClockNumber clock) {
    return time_to_text(QString::number(clock.value));
}

QString time_to_cell(ClockNumber clock) {
    return clock.value == 0 ? QString() : time_to_text(clock);
}

QString without_zero(const QString& time_text) {
    return time_text == u"0:00" ? QString() : time_text;
}

QString text_to_time(QStringView text) {
    const auto colon = text.indexOf(u':');
    if (colon < 0)
        return text.toString();
    return QString::number(Val(text.first(colon)) * 100 + Val(text.sliced(colon + 1)));
}

ClockNumber clock_of(QStringView cell) {
    const auto colon = cell.indexOf(u':');
    if (colon < 0)
        return {Val(cell)};
    return {Val(cell.first(colon)) * 100 + Val(cell.sliced(colon + 1))};
}

minutes minutes_of(QStringView cell) {
    return time_to_minutes(clock_of(cell));
}

} // namespace base
