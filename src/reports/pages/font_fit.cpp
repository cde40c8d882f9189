#include "reports/pages/font_fit.h"

#include "base/text.h"
#include "reports/pages/place.h"

#include <algorithm>
#include <iterator>

namespace reports {

namespace {

struct Step {
    double room; ///< mm for a half-width character, at least
    double size;
};
constexpr Step steps[]{{2.1, 12}, {1.95, 11}, {1.8, 10}, {1.7, 9}, {1.6, 8}, {1.3, 7}, {1.1, 6}, {0.9, 5}};
constexpr double plenty = 2.8;
constexpr double smallest = 4;

} // namespace

double 文字サイズ決定(double 幅, double 位置, QStringView 文字列, double 標準サイズ) {
    const int length = base::byte_length(文字列);
    if (length == 0)
        return 0;
    const double room = (幅 - 位置) / length;
    if (room >= plenty)
        return 標準サイズ;
    const auto step = std::ranges::find_if(steps, [&](const Step& s) { return room >= s.room; });
    return step == std::end(steps) ? smallest : step->size;
}

QString cut_to_room(QStringView 文字列, double 幅) {
    constexpr double half_width_of_smallest = smallest / 2 * (mm_per_inch / points_per_inch);
    return base::left_bytes(文字列, int(幅 / half_width_of_smallest));
}

double centred_inset(double 幅, QStringView 文字列) {
    return (幅 - base::byte_length(文字列) * half_width) / 2;
}

} // namespace reports
