#include "entry/typed_day.h"

#include "base/text.h"
#include "entry/cells.h"

#include <tuple>

namespace entry {

using namespace base;

namespace {

auto times_as_stored(const TypedDay& day) {
    const ClockNumber in = clock_of(day.clock_in);
    return std::tuple(in, end_minutes(in, clock_of(day.clock_out)), clock_of(day.break_time));
}

auto as_stored(const TypedDay& day) {
    const qint64 kind = Val(day.kind_number);
    return std::tuple(times_as_stored(day), Trim(day.remark), kind, kind == 0 ? 0 : Val(day.holiday_work));
}

/// Nobody chose one, and a day without work took its own from the calculation, with the `休出` that it had.
bool got_its_kind_by_itself(const TypedDay& before, TypedDay now, const DayKind& kind_without_work) {
    if (now.kind_number != kind_without_work.number || has_chosen_kind(before, kind_without_work) ||
        has_chosen_kind(now, kind_without_work))
        return false;
    now.kind_number = before.kind_number;
    now.kind_name = before.kind_name;
    now.holiday_work = before.holiday_work;
    return now == before;
}

} // namespace

TypedDay typed_day(const MonthSheet& sheet, int r) {
    const auto& hyou = sheet.hyou;
    const auto& hidden = sheet.hyou_system;
    return {hyou(r, col::clock_in), hyou(r, col::clock_out), hyou(r, col::break_time), hyou(r, col::remark),
        hidden(r, record::kind_number), hidden(r, record::kind_name), hidden(r, record::holiday_work)};
}

bool same_times(const TypedDay& a, const TypedDay& b) {
    return a.clock_in == b.clock_in && a.clock_out == b.clock_out && a.break_time == b.break_time;
}

bool same_kind(const TypedDay& a, const TypedDay& b) {
    return a.kind_number == b.kind_number && a.holiday_work == b.holiday_work;
}

bool has_chosen_kind(const TypedDay& day, const DayKind& kind_without_work) {
    const bool stamped = day.kind_number == kind_without_work.number && day.holiday_work != u"0";
    return Val(day.kind_number) != 0 && !stamped;
}

bool stored_alike(const TypedDay& a, const TypedDay& b) {
    return as_stored(a) == as_stored(b);
}

bool times_stored_alike(const TypedDay& a, const TypedDay& b) {
    return times_as_stored(a) == times_as_stored(b);
}

bool nobody_typed(const TypedDay& before, const TypedDay& now, const DayKind& kind_without_work) {
    const bool alike = stored_alike(before, now) &&
                       has_chosen_kind(before, kind_without_work) == has_chosen_kind(now, kind_without_work);
    return alike || got_its_kind_by_itself(before, now, kind_without_work);
}

bool stands_as_read(const TypedDay& read, const TypedDay& stored, const DayKind& kind_without_work) {
    return read == stored || stored_alike(read, stored) || got_its_kind_by_itself(read, stored, kind_without_work) ||
           got_its_kind_by_itself(stored, read, kind_without_work);
}

} // namespace entry
