#include "install/workday.h"

#include <algorithm>

namespace install {

using namespace base;

Workday measure(const WorkType& type, int weekday, minutes in, minutes out) {
    Workday day{in, out};
    for (const Band& band : bands_of(type, weekday)) {
        const minutes start = time_to_minutes(band.start);
        const minutes end = end_minutes(band.start, band.end);
        const minutes length = std::clamp(out, start, end) - std::clamp(in, start, end);
        day.hours[size_t(band.category) - 1] = length;
        if (band.break_threshold.value > 0 && length >= time_to_minutes(band.break_threshold))
            day.pause += time_to_minutes(band.break_time);
    }
    return day;
}

} // namespace install
