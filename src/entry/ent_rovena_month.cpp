// The boxes of year and month of ent_rovena: what they say, the sheet shows.

#include "base/era.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "entry/ent_rovena.h"

#include <algorithm>

namespace entry {

using namespace base;

constexpr int first_year = 1000; ///< keys of earlier ones have fewer figures, which no stored row has

/// Nothing if the texts name no month.
std::optional<CompanyMonth> ent_rovena::month_in_boxes() const {
    const QString& typed = ym[year_selector].text;
    const QDate today = m_session.host.now().date();
    const int year = western_date_number(typed + u"/1/1"_s, m_session.settings, today) / 10000;
    const int month = ym[month_selector].text.toInt();
    bool is_number = false;
    typed.toInt(&is_number);
    if (!is_number || year < first_year || year > 9999 || !QDate::isValid(year, month, 1))
        return std::nullopt;
    return CompanyMonth(year, month, m_session.settings.month_start_day);
}

/// The key names the month; its first day may lie in the next calendar month.
void ent_rovena::show_month() {
    const int key = sheet.month.month_key();
    const QDate today = m_session.host.now().date();
    ym[year_selector].text = shown_year(QDate(key / 100, key % 100, 1), m_session.settings, today);
    ym[month_selector].text = digits(key % 100);
}

/// The sheet is of the month in the boxes with nobody chosen, too.
void ent_rovena::open_month() {
    書式設定();
    社員選択処理();
}

void ent_rovena::ym_Click(int element, int index) {
    Selector& selector = ym[element];
    if (waiting || !selector.enabled || index < 0 || index >= selector.items.size() || !may_leave_month())
        return;
    show_month();
    selector.text = selector.items[index];
    open_month();
}

void ent_rovena::ym_Change(int element, const QString& text) {
    ym[element].text = text;
}

bool ent_rovena::ym_KeyPress(int character) {
    return (character >= u'0' && character <= u'9') || character == key::minus || character == key::backspace;
}

bool ent_rovena::ym_KeyDown(int element, int key_code) {
    if (key_code != key::enter)
        return false;
    const auto typed = month_in_boxes();
    if (!waiting && typed && typed->month_key() != sheet.month.month_key() && may_leave_month())
        open_month();
    show_month();
    editors.focus = element == year_selector ? EntryControl::YmMonth : EntryControl::Toubotan;
    return true;
}

void ent_rovena::ym_LostFocus() {
    show_month();
}

void ent_rovena::open_day(const frame::MonthInHand& day) {
    int r = hyou_syain.FixedRows();
    while (r < hyou_syain.Rows() && Val(hyou_syain(r, 2)) != day.employee.value())
        ++r;
    if (waiting || r == hyou_syain.Rows() || !may_leave_month())
        return;
    const QDate month(day.month / 100, day.month % 100, 1);
    ym[year_selector].text = shown_year(month, m_session.settings, m_session.host.now().date());
    ym[month_selector].text = digits(month.month());
    書式設定();
    hyou_syain.SetCursor({r, hyou_syain.Cols() - 1});
    choose_employee(r);
    if (employee_chosen())
        hyou_Click(
            {std::max(row::first_day, int(sheet.month.first().daysTo(day.day)) + row::first_day), col::clock_in});
}

frame::MonthInHand ent_rovena::in_hand() const {
    return {sheet.month.month_key(), EmployeeKey(Val(syainsyscd)), sheet.month.day(sheet.hyou.Row())};
}

} // namespace entry
