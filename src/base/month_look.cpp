#include "base/month_look.h"

#include "base/numbers.h"

namespace base {

QString weekday_text(qint64 weekday) {
    return weekday < sunday || weekday > saturday ? QString() : QString(weekdays[weekday]);
}

void show_date(Sheet& sheet, int row, QDate date) {
    const int weekday = date.dayOfWeek() % 7;
    sheet(row, 0) = digits(date.day());
    sheet(row, 1) = weekday_text(weekday);
    if (weekday == sunday)
        sheet.setFore(row, 1, sunday_fore);
    if (weekday == saturday)
        sheet.setFore(row, 1, saturday_fore);
}

} // namespace base
