#include "entry/cells.h"

#include "base/month_look.h"
#include "base/text.h"

#include <algorithm>

namespace entry {

using namespace base;

std::optional<int> category_column(const MonthSheet& sheet, qint64 category) {
    for (int column = col::first_category; column < sheet.hyou.Cols(); ++column)
        if (category_of(sheet, column) == category)
            return column;
    return std::nullopt;
}

int weekday_of(const MonthSheet& sheet, int r) {
    return std::max(0, static_cast<int>(weekdays.indexOf(sheet.hyou(r, col::weekday))));
}

bool is_day(const MonthSheet& sheet, int r) {
    const qint64 day = Val(sheet.hyou(r, col::day));
    return r >= row::first_day && r <= row::last_day && day >= 1 && day <= 31;
}

qint64 count_of(const QString& cell) {
    return Val(文字除去(cell, u','));
}

} // namespace entry
