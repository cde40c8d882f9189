#include "entry/unread_days.h"

#include "base/era.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "entry/editing.h"

namespace entry {

using namespace base;

bool is_not_read_back(const MonthSheet& sheet, int r) {
    return !sheet.mark(r).isEmpty() && !sheet.month.is_found_again(r);
}

base::Sheet days_not_read_back(MonthSheet sheet, const base::Settings& settings, QDate today) {
    calculate_pending_days(sheet);
    base::Sheet days(1, sheet.hyou.Cols());
    for (int column = 0; column < days.Cols(); ++column)
        days(0, column) = sheet.hyou(row::heading, column);
    for (int r = row::first_day; r <= sheet.month.length(); ++r) {
        if (!is_not_read_back(sheet, r))
            continue;
        days.SetRows(days.Rows() + 1);
        for (int column = 0; column < days.Cols(); ++column)
            days(days.Rows() - 1, column) = sheet.hyou(r, column);
        days(days.Rows() - 1, col::day) = 日付表示変換(digits(date_number(sheet.month.day(r))), settings, today);
    }
    return days;
}

} // namespace entry
