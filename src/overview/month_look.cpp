#include "overview/month_look.h"

#include "base/literals.h"
#include "entry/break_handling.h"
#include "entry/cells.h"
#include "entry/day_figures.h"
#include "entry/day_kinds.h"
#include "entry/draft_store.h"
#include "entry/layout.h"
#include "entry/merge.h"
#include "entry/month_load.h"
#include "overview/month_of_all.h"

namespace overview {

using namespace base;
using entry::MonthSheet;

namespace {

namespace row = entry::row;
namespace col = entry::col;
namespace strip = entry::strip;

QHash<qint64, qint64> work_types(store::Database& rovdata) {
    QHash<qint64, qint64> types;
    auto query = rovdata.prepare("select システム社員番号, 勤務タイプ from syainkinmu order by rowid desc");
    while (query.step())
        types.insert(query.row().number(0), query.row().number(1)); // the first row stands
    return types;
}

bool is_typed(const MonthSheet& sheet, int r) {
    const entry::TypedDay day = typed_day(sheet, r);
    const bool any = !day.clock_in.isEmpty() || !day.clock_out.isEmpty() || !day.break_time.isEmpty();
    return any || !day.remark.isEmpty() || has_chosen_kind(day, sheet.kind_without_work);
}

void add(common::KeptSums& sums, const QString& what, qint64 value) {
    if (value != 0)
        sums[what] += value;
}

QString of_category(const MonthSheet& sheet, int column) {
    return sum::category + digits(entry::category_of(sheet, column));
}

void add_shown(common::KeptSums& sums, const MonthSheet& sheet) {
    const auto total = [&](int column) { return duration(clock_of(sheet.hyou(row::total, column)).value).count(); };
    add(sums, sum::breaks, total(col::break_time));
    add(sums, sum::work, total(col::work_time));
    for (int column = col::first_category; column < sheet.hyou.Cols(); ++column)
        add(sums, of_category(sheet, column), total(column));
    for (int column = 0; column < sheet.hyou_day.Cols(); ++column)
        add(sums, sum::days + sheet.hyou_day(strip::tag, column),
            entry::count_of(sheet.hyou_day(strip::count, column)));
}

void add_counted(common::KeptSums& sums, MonthSheet sheet) {
    sheet.kyuflg = entry::BreakHandling::Included;
    for (int r = row::first_day; r <= sheet.month.length(); ++r) {
        if (sheet.hyou(r, col::clock_in).isEmpty() || sheet.hyou(r, col::clock_out).isEmpty())
            continue;
        for (int column = col::first_category; column < sheet.hyou.Cols(); ++column)
            sheet.hyou(r, column).clear();
        const entry::DayFigures day = day_figures(sheet, r, entry::BreakFrom::Rules);
        add(sums, sum::counted + sum::work, day.workMinutes.count());
        for (int i = 0; i < day.categories.size(); ++i)
            add(sums, sum::counted + of_category(sheet, col::first_category + i),
                minutes_of(day.categories[i]).count());
    }
}

} // namespace

common::KeptSums sums_of(const MonthSheet& sheet) {
    common::KeptSums sums;
    add_shown(sums, sheet);
    add_counted(sums, sheet);
    return sums;
}

MonthLook::MonthLook(
    const base::Settings& settings, store::SettingTables& tables, store::Database& rovdata, const CompanyMonth& month)
    : m_settings(settings), m_rovdata(rovdata), m_left_out(entry::kinds_left_out(tables)),
      m_saved(rovdata, month, common::PastMidnight::AsTyped), m_types(work_types(rovdata)),
      m_with_drafts(entry::drafts_waiting(settings, month)) {
    entry::KindList kinds;
    load_day_kinds(m_empty, kinds, rovdata);
    m_empty.kyuflg = entry::break_handling(tables);
    entry::書式設定(m_empty, month);
    entry::書式設定_日(m_empty);
}

const MonthSheet& MonthLook::empty_sheet(qint64 work_type) {
    auto found = m_of_types.find(work_type);
    if (found == m_of_types.end()) {
        found = m_of_types.insert(work_type, m_empty);
        entry::勤務タイプデーター呼出処理(*found, m_rovdata, WorkTypeKey(work_type));
        entry::trim_strip(found->hyou_day);
    }
    return *found;
}

MonthSheet MonthLook::saved(EmployeeKey employee) {
    MonthSheet sheet = empty_sheet(m_types.value(employee.value()));
    entry::勤務時間取得(sheet, m_saved, employee);
    return sheet;
}

EmployeeLook MonthLook::look(EmployeeKey employee, const std::function<void(const MonthSheet&)>& laid) {
    MonthSheet sheet = saved(employee);
    EmployeeLook look;
    look.sums = sums_of(sheet);
    if (m_with_drafts.contains(employee.value())) {
        lay(look, sheet, employee);
        if (laid)
            laid(sheet);
    }
    look.findings = entry::findings(sheet, m_left_out);
    for (int r = row::first_day; r <= sheet.month.length() && !look.typed; ++r)
        look.typed = is_typed(sheet, r);
    if (!look.typed && look.sums.isEmpty())
        look.findings.clear(); // nothing was ever counted
    return look;
}

void MonthLook::lay(EmployeeLook& look, MonthSheet& sheet, EmployeeKey employee) const {
    const entry::Draft draft = entry::read_draft(m_settings, employee, sheet.month);
    look.draft = draft.unsaved_days() > 0 || !draft.counts.isEmpty();
    for (const entry::DraftDay& day : draft.days)
        if (!day.posted)
            look.draft_rows << static_cast<int>(sheet.month.first().daysTo(day.date)) + row::first_day;
    for (const entry::Clash& clash : lay_draft(sheet, draft))
        look.clash_rows << clash.row;
}

} // namespace overview
