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
        sheet.SetCellFore(row, 1, sunday_fore);
    if (weekday == saturday)
        sheet.SetCellFore(row, 1, saturday_fore);
}

void show_holidays(Sheet& sheet, const CompanyMonth& month, const OwnHolidays& own) {
    for (int row = 1; row <= month.length(); ++row) {
        const QString name = holiday_name(month.day(row), own);
        if (name.isEmpty())
            continue;
        for (const int col : {0, 1}) {
            sheet.SetCellTip(row, col, name);
            if (col == 0 || !sheet.Look(row, col).fore)
                sheet.SetCellFore(row, col, sunday_fore);
        }
    }
}

} // namespace base
