#include "overview/ent_itiran.h"

#include "base/era.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "common/employee_order.h"
#include "common/save_path.h"
#include "common/sheet_csv.h"
#include "limits/look.h"
#include "overview/overview_pages.h"
#include "reports/printing/print.h"
#include "store/files.h"

#include <QElapsedTimer>
#include <QScopedValueRollback>
#include <algorithm>

namespace overview {

using namespace base;

namespace {

store::Database open_data(const frame::Session& session) {
    return store::Database::open(store::rovdata_path(session.settings), store::Kind::Rovdata);
}

CompanyMonth month_of_key(int key, int month_start_day) {
    return {key / 100, key % 100, month_start_day};
}

CompanyMonth first_month(const frame::MonthInHand& in_hand, const frame::Session& session) {
    const int start_day = session.settings.month_start_day;
    return in_hand.month == 0 ? CompanyMonth::of(session.host.now().date(), start_day)
                              : month_of_key(in_hand.month, start_day);
}

} // namespace

ent_itiran::ent_itiran(frame::Session& session, frame::MonthInHand& in_hand)
    : only_off(in_hand.only_off), m_session(session), m_in_hand(in_hand) {
    m_frame.month = first_month(in_hand, session);
    m_frame.own_holidays = session.settings.own_holidays;
}

void ent_itiran::Form_Load() {
    read_month();
    cursor_to(m_in_hand.employee, m_in_hand.day);
}

/// Where only what is off is wanted, nothing can be shown before all is looked at.
void ent_itiran::read_month() {
    {
        auto rovdata = open_data(m_session);
        m_frame.usual = usual_kinds(rovdata);
        m_frame.categories = category_names(rovdata);
        m_all = month_of_all(rovdata, m_frame.month, common::employee_order(m_session.tables));
    }
    m_looks.clear();
    m_changed.clear();
    m_limits.clear();
    const int key = m_frame.month.month_key();
    m_closed = common::closed_since(m_session.settings, key);
    month_text = u"%1年 %2月"_s.arg(
        shown_year(QDate(key / 100, key % 100, 1), m_session.settings, m_session.host.now().date()), digits(key % 100));
    if (only_off)
        look_to_the_end();
    draw_picture();
    tell_standing();
}

void ent_itiran::look_to_the_end() {
    while (looking())
        look_on(std::chrono::hours(1));
}

/// The tables are free for others between two slices.
void ent_itiran::look_on(std::chrono::milliseconds time) {
    if (!looking())
        return;
    QElapsedTimer since;
    since.start();
    auto rovdata = open_data(m_session);
    const store::Transaction view(rovdata, store::Transaction::Lock::Read);
    MonthLook look(m_session.settings, m_session.tables, rovdata, m_frame.month);
    do {
        EmployeeMonth& employee = m_all[m_looks.size()];
        m_looks << look.look(employee.key, [&](const entry::MonthSheet& laid) { take_sheet(employee, laid); });
    } while (looking() && since.elapsed() < time.count());
    if (!looking())
        after_the_look();
    tell_standing();
}

void ent_itiran::after_the_look() {
    m_limits = limits::overview_words(m_session, m_frame.month.month_key());
    if (!closings().isEmpty()) {
        auto rovdata = open_data(m_session);
        const auto kept = common::kept_sums(m_session.settings, m_frame.month.month_key());
        m_changed = changed_since_closing(rows(), kept, sum_names(rovdata));
    }
    draw_picture();
}

QList<PictureRow> ent_itiran::rows() const {
    QList<PictureRow> rows;
    rows.reserve(m_all.size());
    for (qsizetype i = 0; i < m_all.size(); ++i)
        rows << PictureRow{&m_all[i], i < m_looks.size() ? &m_looks[i] : nullptr, m_limits.value(m_all[i].key)};
    return rows;
}

QList<PictureRow> ent_itiran::shown_rows() const {
    const QList<PictureRow> all = rows();
    QList<PictureRow> shown;
    for (const qsizetype i : m_shown)
        shown << all[i];
    return shown;
}

void ent_itiran::draw_picture() {
    const bool all = !only_off || looking();
    m_shown.clear();
    for (qsizetype i = 0; i < m_all.size(); ++i)
        if (all || m_looks[i].is_off())
            m_shown << i;
    draw(hyou, m_frame, shown_rows());
}

void ent_itiran::tell_standing() {
    const auto count = [this](auto which) { return digits(std::ranges::count_if(m_looks, which)); };
    QStringList words;
    if (m_closed)
        words << u"締め済み（%1 %2）"_s.arg(m_closed->time.toString(u"yyyy/MM/dd HH:mm"_s), m_closed->pc);
    if (!m_changed.isEmpty())
        words << u"締め後に変更 %1件"_s.arg(m_changed.size());
    words << digits(m_all.size()) + u"人"_s;
    if (looking())
        words << u"確認しています（%1人まで）"_s.arg(m_looks.size());
    else
        words << u"確認が必要 %1人・未登録 %2人・未入力 %3人"_s.arg(
            count([](const EmployeeLook& look) { return !look.findings.isEmpty(); }),
            count([](const EmployeeLook& look) { return look.draft; }),
            count([](const EmployeeLook& look) { return !look.typed; }));
    standing = words.join(u'　');
}

QDate ent_itiran::day_in_hand() const {
    return m_frame.month.day(day_row(hyou.Col()).value_or(1));
}

void ent_itiran::cursor_to(EmployeeKey employee, QDate day) {
    const auto of_employee = [&](qsizetype i) { return m_all[i].key == employee; };
    const auto place = std::ranges::find_if(m_shown, of_employee);
    const int r = place == m_shown.end() ? 0 : int(place - m_shown.begin());
    const qint64 days = m_frame.month.first().daysTo(day);
    const int col = days >= 0 && days < m_frame.month.length() ? int(days) : 0;
    if (!m_shown.isEmpty())
        hyou.SetCursor({heading_rows + r, column::first_day + col});
}

void ent_itiran::step_month(int by) {
    const int key = m_frame.month.month_key();
    const QDate month = QDate(key / 100, key % 100, 1).addMonths(by);
    if (busy || !month.isValid() || month.year() < 1000 || month.year() > 9999)
        return;
    m_frame.month = {month.year(), month.month(), m_session.settings.month_start_day};
    msglab.clear();
    read_month();
}

void ent_itiran::set_only_off(bool on) {
    if (busy || only_off == on)
        return;
    only_off = m_in_hand.only_off = on;
    if (on)
        look_to_the_end();
    draw_picture();
    cursor_to({}, {});
    hyou.SetTopLeft(hyou.FixedRows(), hyou.LeftCol());
    tell_standing();
}

void ent_itiran::hyou_Click(Cell cell) {
    const int place = cell.row - heading_rows;
    if (place >= 0 && place < m_shown.size())
        go_to(m_all[m_shown[place]].key, day_row(cell.col).value_or(total_row));
}

void ent_itiran::go_to(EmployeeKey employee, int row) {
    const QDate day = m_frame.month.day(row);
    if (!busy)
        day_wanted = frame::MonthInHand{
            m_frame.month.month_key(), employee, day.isValid() ? day : m_frame.month.first(), only_off};
}

void ent_itiran::botan_Click(int element) {
    if (element == 0)
        close_wanted = !busy;
}

QString ent_itiran::title() const {
    return u"月間一覧  "_s + month_text;
}

void ent_itiran::print(reports::PrintShop& shop) {
    look_to_the_end();
    const auto pages = [this](QDate today) { return overview_pages(hyou, {title(), standing}, today); };
    const auto printed = reports::print_pages({m_session, shop}, reports::Layout::WorkTime, caption.toString(), pages);
    msglab = printed == reports::Printed::Nothing ? reports::no_pages.toString() : reports::file_line(shop);
}

void ent_itiran::write_file() {
    look_to_the_end();
    Sheet whole;
    draw(whole, m_frame, shown_rows(), Words::Whole);
    const QString headings[] = {title(), standing};
    const QString path = common::CSV保存先取得(
        m_session.settings, m_session.host, m_session.tables, caption.toString(), u"%1_%2"_s.arg(caption, month_text));
    if (path.isEmpty())
        return;
    const common::Written written = common::write_csv(headings, whole, path);
    msglab = written == common::Written::Failed ? QString() : u"出力終了"_s;
    common::tell_written(written, headings, whole, m_session.host);
}

QList<common::Closing> ent_itiran::closings() const {
    return common::closings_of(m_session.settings, m_frame.month.month_key());
}

QList<Told> ent_itiran::against() const {
    return against_closing(rows(), m_frame.month);
}

void ent_itiran::close_month() {
    if (busy || is_closed())
        return;
    const QScopedValueRollback working(busy, true);
    QList<EmployeeKey> employees;
    for (const EmployeeMonth& employee : m_all)
        employees << employee.key;
    close(m_session, m_frame.month, employees);
    read_month();
}

void ent_itiran::reopen_month() {
    if (busy)
        return;
    reopen(m_session, m_frame.month);
    read_month();
}

} // namespace overview
