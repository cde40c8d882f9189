#include "reports/rov_01.h"

#include "base/company_month.h"
#include "base/era.h"
#include "base/keys.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "common/ken_mst.h"
#include "frame/button.h"
#include "reports/csv.h"
#include "reports/print.h"
#include "store/numbering.h"

#include <QFile>
#include <QScopedValueRollback>
#include <algorithm>

namespace reports {

using namespace base;

namespace {

enum Element { year_box, month_box };

constexpr int years_around = 3;
constexpr int clicks_before_headings = 10;
constexpr int free_text_reports[] = {10, 11};

bool is_digit_or_backspace(int character) {
    return character == key::backspace || (character >= '0' && character <= '9');
}

} // namespace

rov_01::rov_01(frame::Session& session, frame::mainform& main_form, PrintShop& shop, Windows windows)
    : m_session(session), m_mainform(main_form), m_shop(shop), m_windows(std::move(windows)) {}

const ReportRow* rov_01::row() const {
    return report_row(Val(chouno));
}

Panels rov_01::panels() const {
    return row() ? row()->panels : Panels();
}

// Loading and showing.

void rov_01::Form_Load() {
    chouno = digits(m_mainform.report_no);
    if (const ReportRow* report_of_number = row()) {
        set_dates(report_of_number->ymd);
        if (report_of_number->months)
            fill_months();
    }
    帳票画面作成メイン();
}

void rov_01::帳票画面作成メイン() {
    chouno = digits(m_mainform.report_no);
    report.帳票番号 = int_val(chouno);
    format();
}

void rov_01::format() {
    if (row())
        row()->format(report, m_session);
}

void rov_01::Form_Activate() {
    初期フォーカス移動();
    const QString picture =
        frame::picture_folder(m_session.settings) + u"mida_chou_%1.bmp"_s.arg((u"000"_s + chouno).right(3));
    if (QFile::exists(picture))
        Image1 = picture;
    to(Control::botabox);
    if (panels().pic_tantou)
        to(Control::tancd);
    if (panels().Pic_yyyymm)
        to(Control::yyyymm, year_box);
    if (panels().pic_ymd_t1)
        to(Control::ymd);
}

QString rov_01::shown(QDate date) const {
    return 日付表示変換(digits(date_number(date)), m_session.settings, today());
}

void rov_01::set_dates(DateDefault dates) {
    const QDate day = today();
    const QDate first(day.year(), day.month(), 1);
    if (dates == DateDefault::Today)
        report.conditions.ymd = {shown(day), shown(day)};
    if (dates == DateDefault::ThisMonth)
        report.conditions.ymd = {shown(first), shown(first.addMonths(1).addDays(-1))};
}

void rov_01::fill_months() {
    const QDate day = today();
    for (int year = day.year() - years_around; year <= day.year() + years_around; ++year)
        yyyymm[year_box].items << shown(QDate(year, 1, 1)).section(u'/', 0, 0);
    for (int month = 1; month <= 12; ++month)
        yyyymm[month_box].items << digits(month);
    report.conditions.yyyymm = {yyyymm[year_box].items[years_around], yyyymm[month_box].items[day.month() - 1]};
}

// Buttons.

/// Runs the work of a button, which begins with a sign of life.
void rov_01::work(const std::function<void()>& of_the_button) {
    if (busy)
        return;
    const QScopedValueRollback working(busy, true);
    jyoulab.clear();
    msg_tai.clear();
    to(Control::karibotan);
    m_session.host.yield();
    if (row())
        of_the_button();
}

void rov_01::botan_Click(int element) {
    if (element == 0)
        close_wanted = !busy;
    else
        work([&] { element == 1 ? extract() : print_sheet(); });
}

void rov_01::preview_Click() {
    work([this] {
        m_windows.preview(report);
        to_after_print();
    });
}

void rov_01::csvex_Click() {
    work([this] { 帳票CSV出力(report, m_session, [this](const QString& text) { jyoulab = text; }); });
}

/// A month that is none keeps the sheet, and the keyboard goes to its box.
void rov_01::extract() {
    if (panels().Pic_yyyymm && !month_stands())
        return;
    const bool whole = run_tally();
    msg_tai = whole ? QString() : u"中止しました"_s;
    if (panels().Pic_yyyymm)
        to(Control::yyyymm, year_box);
    else if (panels().pic_ymd_t1)
        to(Control::ymd);
    else if (panels().pic_tantou)
        to(Control::tancd);
}

/// False if the person cancelled, or an employee couldn't be printed: then the others aren't tried.
bool rov_01::run_tally() {
    const frame::WorkLine::Running running(m_mainform.work, u"集計中"_s);
    const ContinuousPrinting jobs(m_shop);
    Printed printed = Printed::Yes;
    Work work{m_session,
        [&](qint64 done, qint64 total) { return m_mainform.work.advance(done, total) && printed == Printed::Yes; },
        [&] { printed = print(report, m_session, m_shop); }};
    return row()->tally(report, work) == Outcome::Done && printed == Printed::Yes;
}

void rov_01::print_sheet() {
    print(report, m_session, m_shop);
    to_after_print();
}

void rov_01::to_after_print() {
    to(row()->after_print);
}

void rov_01::Image1_Click() {
    if (++m_image_clicks > clicks_before_headings)
        pic_msg = true;
}

bool rov_01::botabox_KeyDown(int key_code) {
    if (key_code != key::enter)
        return false;
    botan_Click(1);
    return true;
}

// Employees.

void rov_01::tancd_Change(int element, const QString& text) {
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
        if (found[0].isEmpty())
            c.tancd[element].clear();
    }
    ntancd_enabled[element] = true;
}

bool rov_01::tancd_KeyDown(int element, int key_code) {
    if (key_code == key::f1)
        m_windows.search(common::search_employees, element);
    else if (key_code == key::enter)
        element == 0 ? to(Control::tancd, 1) : to(Control::toubotan);
    else if (key_code == key::left && element == 1)
        to(Control::tancd, 0);
    else if (key_code == key::left && panels().pic_ymd_t1)
        to(Control::ymd, 1);
    else
        return false;
    return true;
}

void rov_01::ntancd_GotFocus(int element) {
    ntancd_enabled[element] = false;
    to(Control::tancd, element);
}

void rov_01::search_ended(int element, const QString& number) {
    to(Control::tancd, element);
    if (number.isEmpty())
        return;
    tancd_Change(element, number);
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
        text = 日付連結(text, m_session.settings.date_style == 1 ? YearForm::Era : YearForm::Western);
}

/// What makes no date leaves the box empty: a box without a date is seen, a "0" in it isn't understood.
void rov_01::ymd_LostFocus(int element) {
    if (free_text_dates())
        return;
    QString& text = report.conditions.ymd[element];
    const auto date = m_mainform.date_entry.日付簡単入力(text, common::Blank::TakesLastDate, today());
    text = date.value_or(0) == 0 ? QString() : 日付表示変換(digits(*date), m_session.settings, today());
}

bool rov_01::ymd_KeyDown(int element, int key_code, bool at_the_start) {
    if (key_code == key::enter)
        element == 0 ? to(Control::ymd, 1) : to(Control::tancd, 0);
    else if (key_code == key::left && element == 1 && at_the_start)
        to(Control::ymd, 0);
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

void rov_01::yyyymm_GotFocus(int element) {
    yyyymm[element].remembered = report.conditions.yyyymm[element];
}

void rov_01::yyyymm_LostFocus(int element) {
    if (!month_stands() || yyyymm[element].remembered == report.conditions.yyyymm[element])
        return;
    yyyymm[element].remembered = report.conditions.yyyymm[element];
    format();
}

/// Sends the keyboard back to the box that holds no year or month.
bool rov_01::month_stands() {
    const qint64 month = Val(report.conditions.yyyymm[month_box]);
    const bool year_is_one = Val(report.conditions.yyyymm[year_box]) > 0;
    if (!year_is_one)
        to(Control::yyyymm, year_box);
    else if (month < 1 || month > 12)
        to(Control::yyyymm, month_box);
    return year_is_one && month >= 1 && month <= 12;
}

bool rov_01::yyyymm_KeyDown(int element, int key_code) {
    if (key_code != key::enter)
        return false;
    element == year_box ? to(Control::yyyymm, month_box) : to(Control::tancd, 0);
    return true;
}

bool rov_01::yyyymm_KeyPress(int character) {
    return character == key::minus || is_digit_or_backspace(character);
}

} // namespace reports
