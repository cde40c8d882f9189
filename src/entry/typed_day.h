#pragma once

// What a person types into a day, and the ways in which two states of it are the same. A kind may have come by itself:
// the calculation gives a day without work the standard one and leaves `休出` as it is, while a choice sets it.

#include "entry/sheet.h"

namespace entry {

/// All that the figures of a day follow from.
struct TypedDay {
    QString clock_in;
    QString clock_out;
    QString break_time;
    QString remark;
    QString kind_number;
    QString kind_name;
    QString holiday_work;
    friend bool operator==(const TypedDay&, const TypedDay&) = default;
};

TypedDay typed_day(const MonthSheet& sheet, int r);

/// Whether their clock times and breaks are the same, from which a day's figures follow.
bool same_times(const TypedDay& a, const TypedDay& b);

/// Whether both count alike as days of a kind.
bool same_kind(const TypedDay& a, const TypedDay& b);

/// Whether a person chose the day's kind.
bool has_chosen_kind(const TypedDay& day, const DayKind& kind_without_work);

/// Whether both are the same once they are stored and read back: a clock-out of midnight reads back as "24:00", a break
/// of "0:00" and a kind of number 0 as nothing.
bool stored_alike(const TypedDay& a, const TypedDay& b);
/// The same of their clock times and breaks alone.
bool times_stored_alike(const TypedDay& a, const TypedDay& b);

/// Whether nothing that was typed lies between what a day was and what it is: it may have got its kind by itself, but
/// not lost it.
bool nobody_typed(const TypedDay& before, const TypedDay& now, const DayKind& kind_without_work);

/// Whether what is stored is what was read. A day that stood without a kind and has by now the one that a save of other
/// days gave it by itself is as it was, and so is one that got it and lost it with the rows of that save.
bool stands_as_read(const TypedDay& read, const TypedDay& stored, const DayKind& kind_without_work);

} // namespace entry
