#include "intake/standing_days.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "entry/day_kinds.h"
#include "entry/draft_store.h"
#include "entry/merge.h"

namespace intake {

using namespace base;
using entry::TypedDay;

namespace {

entry::DayKind kind_without_work(store::Database& rovdata) {
    entry::MonthSheet sheet;
    entry::KindList kinds;
    load_day_kinds(sheet, kinds, rovdata);
    return sheet.kind_without_work;
}

bool is_blank(const TypedDay& day) {
    return day.clock_in.isEmpty() && day.clock_out.isEmpty() && day.break_time.isEmpty() && Val(day.kind_number) == 0;
}

} // namespace

TypedDay typed_by_person(TypedDay day, const entry::DayKind& kind_without_work) {
    if (!has_chosen_kind(day, kind_without_work))
        day.kind_number = day.kind_name = day.holiday_work = QString();
    return day;
}

StandingDays::StandingDays(const base::Settings& settings, store::Database& rovdata)
    : m_settings(settings), m_rovdata(rovdata), m_view(rovdata, store::Transaction::Lock::Read),
      m_with_drafts(entry::drafts_waiting(settings).months_of), m_kind_without_work(kind_without_work(rovdata)) {}

StandingDay StandingDays::day(EmployeeKey employee, QDate date) {
    const CompanyMonth month = CompanyMonth::of(date, m_settings.month_start_day);
    const int r = month.row(date);
    if (!month.is_found_again(r))
        return {{}, false, u"年をまたぐ月の1月の日は、登録すると読み戻せません"_s};
    const Month& read = month_of(employee, month);
    StandingDay day{typed_by_person(read.days[r], m_kind_without_work)};
    day.blank = is_blank(day.typed);
    if (read.clashes.contains(r))
        day.trouble = u"下書きの後に別のＰＣで登録されています。出勤入力で選んでください"_s;
    return day;
}

const StandingDays::Month& StandingDays::month_of(EmployeeKey employee, const CompanyMonth& month) {
    const std::pair key(employee.value(), month.month_key());
    auto found = m_months.find(key);
    if (found == m_months.end()) {
        found = m_months.insert(key, {});
        read_saved(found->days, employee, month);
        if (m_with_drafts.contains(employee.value()))
            lay_draft(*found, employee, month);
    }
    return *found;
}

void StandingDays::read_saved(entry::MonthAsRead& days, EmployeeKey employee, const CompanyMonth& month) {
    auto reader = m_readers.find(month.month_key());
    if (reader == m_readers.end())
        reader =
            m_readers
                .try_emplace(month.month_key(), common::SavedMonth(m_rovdata, month, common::PastMidnight::AsTyped))
                .first;
    reader->second.days(employee, [&](int r, const common::SavedDay& day) {
        if (r != entry::row::total)
            days[r] = {day.clock_in, day.clock_out, day.break_time, day.remark, {}, {}, {}};
    });
    reader->second.kinds(employee, [&](int r, const common::SavedKind& kind) {
        days[r].kind_number = kind.number();
        days[r].kind_name = kind.name();
        days[r].holiday_work = kind.holiday_work();
    });
}

void StandingDays::lay_draft(Month& read, EmployeeKey employee, const CompanyMonth& month) const {
    const entry::Draft draft = entry::read_draft(m_settings, employee, month);
    const entry::Merge merged = merge(month, draft.days, read.days, m_kind_without_work);
    for (const entry::DraftDay& day : merged.laid)
        read.days[month.row(day.date)] = day.typed;
    for (const entry::Clash& clash : merged.clashes)
        read.clashes << clash.row;
}

} // namespace intake
