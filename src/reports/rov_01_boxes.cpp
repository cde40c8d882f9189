#include "reports/rov_01.h"

#include "base/company_month.h"
#include "base/era.h"
#include "base/keys.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "common/ken_mst.h"
#include "store/numbering.h"

#include <algorithm>
#include <utility>

namespace reports {

using namespace base;

namespace {

constexpr int free_text_reports[] = {10, 11};

bool is_digit_or_backspace(int character) {
    return character == key::backspace || (character >= '0' && character <= '9');
}

} // namespace

// What the person does in the boxes of the conditions. Employees first.

void rov_01::tancd_Change(int element, const QString& text) {
    notice.reset();
    report.conditions.tancd[element] = text;
    report.conditions.systancd[element].clear();
    report.conditions.ntancd[element].clear();
}

void rov_01::tancd_LostFocus(int element) {
    Conditions& c = report.conditions;
    if (!c.tancd[element].isEmpty() && c.systancd[element].isEmpty()) {
        const auto found = store::マスター項目取得(
            m_session.settings, u"syain"_s, u"社員番号"_s, c.tancd[element], {u"システム番号"_s, u"社員名"_s});
        c.systancd[element] = found[0];
        c.ntancd[element] = found[1];
        if (found[0].isEmpty()) {
            notice = {{ReportControl::tancd, element}, u"社員番号 %1 は登録されていません"_s.arg(c.tancd[element])};
            c.tancd[element].clear();
        }
    }
    ntancd_enabled[element] = true;
}

bool rov_01::tancd_KeyDown(int element, int key_code) {
    notice.reset();
    if (key_code == key::f1)
        m_windows.search(common::search_employees, element);
    else if (key_code == key::enter)
        element == 0 ? to(ReportControl::tancd, 1) : to(ReportControl::toubotan);
    else if (key_code == key::left && element == 1)
        to(ReportControl::tancd, 0);
    else if (key_code == key::left && panels().pic_ymd_t1)
        to(ReportControl::ymd, 1);
    else
        return false;
    return true;
}

void rov_01::ntancd_GotFocus(int element) {
    ntancd_enabled[element] = false;
    to(ReportControl::tancd, element);
}

void rov_01::search_ended(int element, const std::optional<QString>& number) {
    to(ReportControl::tancd, element);
    if (!number)
        return;
    tancd_Change(element, *number);
    tancd_LostFocus(element);
    ntancd_enabled[element] = false;
}

// Dates.

bool rov_01::free_text_dates() const {
    return std::ranges::find(free_text_reports, Val(chouno)) != std::end(free_text_reports);
}

void rov_01::ymd_GotFocus(int element) {
    QString& text = report.conditions.ymd[element];
    if (!free_text_dates())
        text = 日付連結(text, era_years(m_session.settings, today()) ? YearForm::Era : YearForm::Western);
}

void rov_01::ymd_Change(int element, const QString& text) {
    notice.reset();
    report.conditions.ymd[element] = text;
}

/// What makes no date puts back what the box held: an empty box would open the range without a word.
void rov_01::ymd_LostFocus(int element) {
    if (free_text_dates())
        return;
    QString& text = report.conditions.ymd[element];
    const auto date = m_mainform.date_entry.日付簡単入力(text, common::Blank::TakesLastDate, today());
    if (date.value_or(0) != 0)
        m_accepted_ymd[element] = 日付表示変換(digits(*date), m_session.settings, today());
    else if (!text.isEmpty())
        notice = {{ReportControl::ymd, element}, u"%1 は日付になりません（10月3日は 1003）"_s.arg(text)};
    text = m_accepted_ymd[element];
}

bool rov_01::ymd_KeyDown(int element, int key_code, bool at_the_start) {
    notice.reset();
    if (key_code == key::enter)
        element == 0 ? to(ReportControl::ymd, 1) : to(ReportControl::tancd, 0);
    else if (key_code == key::left && element == 1 && at_the_start)
        to(ReportControl::ymd, 0);
    else
        return false;
    return true;
}

bool rov_01::ymd_KeyPress(int character) {
    return is_digit_or_backspace(character);
}

// Year and month.

void rov_01::yyyymm_Click(int element, int index) {
    if (!panels().Pic_yyyymm || index < 0 || index >= yyyymm[element].items.size())
        return;
    report.conditions.yyyymm[element] = yyyymm[element].items[index];
    yyyymm[element].remembered = report.conditions.yyyymm[element];
    format();
}

/// The keyboard may come back from a message before it has left: what was typed in between is still to be looked at.
void rov_01::yyyymm_GotFocus(int element) {
    std::optional<QString>& remembered = yyyymm[element].remembered;
    if (!remembered)
        remembered = report.conditions.yyyymm[element];
}

void rov_01::yyyymm_LostFocus(int element) {
    const auto before = std::exchange(yyyymm[element].remembered, std::nullopt);
    if (const auto wrong = wrong_month_box())
        to(ReportControl::yyyymm, *wrong);
    else if (before != report.conditions.yyyymm[element])
        format();
}

/// The box that holds no year or no month.
std::optional<int> rov_01::wrong_month_box() const {
    if (Val(report.conditions.yyyymm[year_box]) <= 0)
        return year_box;
    const qint64 month = Val(report.conditions.yyyymm[month_box]);
    return month < 1 || month > 12 ? std::optional(month_box) : std::nullopt;
}

bool rov_01::yyyymm_KeyDown(int element, int key_code) {
    if (key_code != key::enter)
        return false;
    element == year_box ? to(ReportControl::yyyymm, month_box) : to(ReportControl::tancd, 0);
    return true;
}

bool rov_01::yyyymm_KeyPress(int character) {
    return character == key::minus || is_digit_or_backspace(character);
}

} // namespace reports
