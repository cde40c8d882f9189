#pragma once

// A month of attendance as a clerk types it, and what must be read back.

#include "base/sheet.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace e2e {

/// One day as typed. Times are bare digits; an empty text is passed over.
struct TypedDay {
    int row = 0;
    QString clock_in{};
    QString clock_out{};
    QString pause{};
    QString remark{};
    QString kind{}; ///< chosen from the list
};

/// The month on the sheet as a plan of all that attendance knows: ordinary days on weekdays, and among them a night
/// shift, a break typed by hand, a day of leave, a day with a remark and a Sunday worked.
/// `leave` and `sunday_work` are names of day kinds of the company.
QList<TypedDay> plan_month(const base::Sheet& hyou, const QString& leave, const QString& sunday_work);

/// Where the sheet doesn't show what was typed: a line each, empty if all is there.
QStringList missing_on_sheet(const base::Sheet& hyou, const QList<TypedDay>& days);

/// Where two sheets differ in the given number of rows: a line each, with the name of the sheet in front.
QStringList differences(const QString& name, const base::Sheet& before, const base::Sheet& after, int rows);

} // namespace e2e
