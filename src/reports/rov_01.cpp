#include "reports/rov_01.h"

#include "base/company_month.h"
#include "base/era.h"
#include "base/keys.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "frame/button.h"
#include "reports/csv.h"
#include "reports/printing/print.h"

#include <QFile>
#include <QScopeGuard>
#include <QScopedValueRollback>

namespace reports {

using namespace base;

namespace {

constexpr int years_around = 3;
constexpr int clicks_before_headings = 10;

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
    to(ReportControl::botabox);
    if (panels().pic_tantou)
        to(ReportControl::tancd);
    if (panels().Pic_yyyymm)
        to(ReportControl::yyyymm, year_box);
    if (panels().pic_ymd_t1)
        to(ReportControl::ymd);
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
    m_accepted_ymd = report.conditions.ymd;
}

void rov_01::fill_months() {
    const QDate day = today();
    for (int year = day.year() - years_around; year <= day.year() + years_around; ++year)
        yyyymm[year_box].items << shown_year(QDate(year, 1, 1), m_session.settings, day);
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
    to(ReportControl::karibotan);
    m_session.host.yield();
    const auto say_file = qScopeGuard([this] { say(file_line(m_shop)); });
    if (row())
        of_the_button();
}

/// Puts a word behind what `msg_tai` says.
void rov_01::say(const QString& word) {
    msg_tai += (msg_tai.isEmpty() || word.isEmpty() ? QString() : u"　"_s) + word;
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
    const auto stands = [this](const QString& text) {
        jyoulab = text;
        if (jyoulab_changed)
            jyoulab_changed();
    };
    work([&] { 帳票CSV出力(report, m_session, stands); });
}

/// A month that is none keeps the sheet, and the keyboard goes to its box.
void rov_01::extract() {
    if (const auto wrong = wrong_month_box(); wrong && panels().Pic_yyyymm)
        return to(ReportControl::yyyymm, *wrong);
    say(run_tally());
    if (panels().Pic_yyyymm)
        to(ReportControl::yyyymm, year_box);
    else if (panels().pic_ymd_t1)
        to(ReportControl::ymd);
    else if (panels().pic_tantou)
        to(ReportControl::tancd);
}

/// What there is to say of it. It ends early if the person cancels, and if an employee couldn't be printed: then the
/// others aren't tried.
QString rov_01::run_tally() {
    const frame::WorkLine::Running running(m_mainform.work, u"集計中"_s);
    const ContinuousPrinting jobs(m_shop);
    std::optional<Printed> printed; // of the last employee
    const auto all_printed = [&] { return printed.value_or(Printed::Yes) == Printed::Yes; };
    Work work{m_session,
        [&](qint64 done, qint64 total) { return m_mainform.work.advance(done, total) && all_printed(); },
        [&] { printed = print(report, m_session, m_shop); }};
    if (row()->tally(report, work) == Outcome::Cancelled || !all_printed())
        return u"中止しました"_s;
    return report.conditions.print_flg && !printed ? no_pages.toString() : QString();
}

void rov_01::print_sheet() {
    if (print(report, m_session, m_shop) == Printed::Nothing)
        say(no_pages.toString());
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

} // namespace reports
