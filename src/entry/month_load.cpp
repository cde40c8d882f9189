#include "entry/month_load.h"

#include "base/numbers.h"
#include "base/text.h"
#include "entry/cells.h"

namespace entry {

using namespace base;

namespace {

void show_day(base::Sheet& hyou, int r, const common::SavedDay& day) {
    if (r != row::total) {
        hyou(r, col::clock_in) = day.clock_in;
        hyou(r, col::clock_out) = day.clock_out;
    }
    hyou(r, col::break_time) = day.break_time;
    hyou(r, col::work_time) = day.work_time;
    hyou(r, col::remark) = day.remark;
}

void show_hours(MonthSheet& sheet, int r, qint64 category, const QString& time) {
    if (const auto column = category_column(sheet, category))
        sheet.hyou(r, *column) = time;
}

void show_count(base::Sheet& hyou_day, const common::SavedCount& count) {
    for (int column = 0; column < hyou_day.Cols(); ++column) {
        if (Trim(hyou_day(strip::tag, column)) != count.tag)
            continue;
        hyou_day(strip::count, column) = count.days;
        return;
    }
}

void show_kind(MonthSheet& sheet, int r, const common::SavedKind& kind) {
    sheet.hyou_system(r, record::kind_number) = kind.number();
    sheet.hyou_system(r, record::kind_name) = kind.name();
    sheet.hyou_system(r, record::holiday_work) = kind.holiday_work();
    sheet.hyou(r, col::kind) = sheet.hyou_system(r, record::kind_name);
}

} // namespace

void 勤務時間取得(MonthSheet& sheet, store::Database& database, EmployeeKey employee) {
    common::SavedMonth saved(database, sheet.month, common::PastMidnight::AsTyped);
    勤務時間取得(sheet, saved, employee);
}

void 勤務時間取得(MonthSheet& sheet, common::SavedMonth& saved, EmployeeKey employee) {
    saved.days(employee, [&](int r, const common::SavedDay& day) { show_day(sheet.hyou, r, day); });
    saved.hours(employee, [&](int r, qint64 category, const QString& time) { show_hours(sheet, r, category, time); });
    saved.counts(employee, [&](const common::SavedCount& count) { show_count(sheet.hyou_day, count); });
    saved.kinds(employee, [&](int r, const common::SavedKind& kind) { show_kind(sheet, r, kind); });
    sheet.entry_cell = {row::first_day, col::clock_in};
}

WorkType read_month(MonthSheet& sheet, store::Database& database, EmployeeKey employee) {
    // The exchange manager may be writing meanwhile.
    const store::Transaction view(database, store::Transaction::Lock::Read);
    WorkType type = 時間外フォーム呼出処理(database, employee);
    勤務タイプデーター呼出処理(sheet, database, WorkTypeKey(Val(type.kintypecd)));
    勤務時間取得(sheet, database, employee);
    return type;
}

void trim_strip(base::Sheet& hyou_day) {
    int last = hyou_day.Cols() - 1;
    while (last >= strip::first_kind && hyou_day(strip::name, last).isEmpty())
        --last;
    if (last >= 1)
        hyou_day.SetCols(last + 1);
}

} // namespace entry
