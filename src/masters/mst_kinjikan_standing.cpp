// What mst_kinjikan says of the type in hand: break rules that would be cut short, what isn't registered, what isn't
// chosen.

#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "base/time.h"
#include "masters/day_strip.h"
#include "masters/mst_kinjikan.h"
#include "masters/work_type_load.h"
#include "masters/work_type_save.h"

namespace masters {

using namespace base;

namespace {

constexpr QStringView weekday_names = u"日月火水木金土";

bool in_use(const Sheet& hyou, int row) {
    return !hyou(row, band_col::start).isEmpty() || !hyou(row, band_col::end).isEmpty();
}

/// What is shown for a choice without a name: a number without one was chosen before its row in the master went.
QString stand_in_of(const QString& number) {
    return Val(number) == 0 ? unset_choice.toString() : u"（削除済み）"_s;
}

void show_unset_choices(Sheet& hyou, int row) {
    const bool used = in_use(hyou, row);
    hyou.SetCellStandIn(row, band_col::category_name, used ? stand_in_of(hyou(row, band_col::category)) : QString());
    hyou.SetCellStandIn(row, band_col::mode_name, used ? stand_in_of({}) : QString());
}

} // namespace

/// The day in the grid becomes right when it is left; one of a day set does not.
QList<int> mst_kinjikan::days_cut_short() const {
    QList<int> days;
    for (int weekday = 0; weekday < weekday_count; ++weekday)
        if (weekday != hyou_youbi_tag && !m_week.rule_cut_short(weekday).isEmpty())
            days << weekday;
    return days;
}

QString mst_kinjikan::rules_line() const {
    const QList<int> days = days_cut_short();
    if (days.isEmpty())
        return {};
    QStringList names;
    for (const int weekday : days)
        names << weekday_names.sliced(weekday, 1).toString();
    const QString rule = m_week.rule_cut_short(days.first());
    return u"まとめて入れた休憩は、このままでは %1 で %2 が %3 と登録されます"_s.arg(
        names.join(u'・'), rule, time_to_text(digits(Val(rule))));
}

/// A day set in view is left first, with its question if the grid holds more than was given to Monday; else the next
/// registration would give the rules as texts again.
void mst_kinjikan::give_rules_to_all_days() {
    if (busy)
        return;
    leave_cell();
    focus = Focus{Control::Toubotan};
    if (is_day_set(hyou_youbi_tag)) {
        if (m_week.is_shown(hyou, monday))
            choose_day(monday);
        else
            仮データー処理(hyou_youbi_tag, monday);
    }
    m_week.make_rules_numbers();
    msglab = u"まとめて入れた休憩を、そのすべての曜日に入れました。"_s;
}

void mst_kinjikan::hold_as_registered(const WeekBuffer& week, const QString& name) {
    m_registered = week;
    m_registered_name = name;
}

void mst_kinjikan::rows_are_back() {
    const qint64 number = Val(kinjino);
    if (number == 0)
        return;
    WeekBuffer week;
    auto rovdata = open_rovdata();
    load_work_type(rovdata, number, NameTable(atai_com[0]), NameTable(atai_com[1]), week);
    hold_as_registered(week, stored_name(rovdata, number));
}

bool mst_kinjikan::differs(const WeekBuffer& week, int weekday, int band) const {
    const auto would_be = stored_band(week, weekday, band);
    const bool dropped = !would_be && !week.is_blank(weekday, band);
    return dropped || would_be != stored_band(m_registered, weekday, band);
}

bool mst_kinjikan::mark_unregistered() {
    WeekBuffer now = m_week;
    const int shown = day_shown(hyou_youbi_tag);
    now.take_day(hyou, shown);
    bool any = Trim(kinjikanmei) != m_registered_name;
    for (int weekday = 0; weekday < weekday_count; ++weekday) {
        bool marked = false;
        for (int band = 1; band <= band_count; ++band) {
            const bool band_marked = differs(now, weekday, band);
            marked |= band_marked;
            if (weekday == shown)
                hyou.SetCellDot(band, band_col::row_number, band_marked);
        }
        hyou_youbi.SetCellDot(0, weekday, marked);
        any |= marked;
    }
    for (int row = hyoulist.FixedRows(); row < hyoulist.Rows(); ++row)
        hyoulist.SetCellDot(row, 0, any && !kinjino.isEmpty() && hyoulist(row, 1) == kinjino);
    for (int row = hyou.FixedRows(); row < hyou.Rows(); ++row)
        show_unset_choices(hyou, row);
    return any;
}

} // namespace masters
