#include "tour.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "support/person.h"

#include <QFile>
#include <QTest>

namespace tour {

using namespace base;
using e2e::demand;

namespace {

constexpr QSize usual_window(1366, 768);
constexpr QSize low_window(1280, 720);
constexpr int employee_row = 2;
constexpr int days_before_picture = 8;

} // namespace

Tour::Tour(ui::Program& program, Boxes& boxes, const QDir& out)
    : m_program(program), m_boxes(boxes), m_out(out), m_clerk(program.window()) {
    // The made-up company's attendance ends before the next month.
    const QDate today = program.session().host.now().date();
    m_month = QDate(today.year(), today.month(), 1).addMonths(1);
    resize_window(usual_window);
}

void Tour::walk() {
    picture(u"01-main-frame"_s);
    m_clerk.press_button(u"集計表"_s);
    picture(u"02-menu-of-reports"_s);
    m_clerk.press_button(u"マスター"_s);
    picture(u"03-menu-of-masters"_s);
    open_month();
    picture(u"04-employee-chosen"_s);
    type_month();
    save();
    read_back();
    resize_window(low_window);
    picture(u"11-read-again-1280x720"_s);
    QFile dump(m_out.filePath(u"tables.txt"_s));
    demand(dump.open(QIODevice::WriteOnly), u"can't write "_s + dump.fileName());
    dump.write(e2e::dump_tables(m_program.session().settings, employee(), form().sheet.month).toUtf8());
    leave_program();
}

void Tour::open_month() {
    m_clerk.press_button(u"出勤入力"_s);
    m_clerk.choose_month(m_month.year(), m_month.month());
    m_clerk.choose_employee(employee_row);
}

void Tour::type_month() {
    m_typed = e2e::plan_month(form().sheet.hyou, u"有休"_s, u"日曜出勤"_s);
    m_clerk.type_days(m_typed.first(days_before_picture));
    support::type_word(m_typed[days_before_picture].clock_in);
    picture(u"05-typing-clock-times"_s);
    m_clerk.type_days(m_typed.sliced(days_before_picture));
    m_clerk.type_remarks(m_typed);
    picture(u"06-remarks-typed"_s);
    m_clerk.choose_kinds(m_typed);
    picture(u"07-kinds-chosen"_s);
    m_clerk.type_count(entry::strip::first_kind, u"3"_s);
    picture(u"08-month-typed"_s);
    demand_none(e2e::missing_on_sheet(form().sheet.hyou, m_typed), u"what was typed isn't on the sheet"_s);
}

void Tour::save() {
    m_clerk.press_button(u"登録"_s);
    m_saved = form().sheet;
    picture(u"09-saved"_s);
    e2e::wait_for_manager(m_program.session().settings);
    demand_none(e2e::missing_in_tables(m_program.session().settings, employee(), m_saved.month, m_typed),
        u"not in the tables"_s);
}

void Tour::read_back() {
    open_month();
    picture(u"10-read-again"_s);
    const entry::MonthSheet& again = form().sheet;
    demand_none(e2e::missing_on_sheet(again.hyou, m_typed), u"what was typed isn't read back"_s);
    demand_none(e2e::differences(u"hyou"_s, m_saved.hyou, again.hyou, entry::row::total + 1), u"the sheet differs"_s);
    demand_none(e2e::differences(u"hyou_day"_s, m_saved.hyou_day, again.hyou_day, again.hyou_day.Rows()),
        u"the count strip differs"_s);
}

void Tour::leave_program() {
    m_boxes.await(u"終了しますか？"_s, u"はい"_s, u"12-leaving"_s);
    m_clerk.press_button(u"終了"_s);
    demand(m_boxes.answered(), u"nobody asked before the program ended"_s);
    demand(!m_program.window().isVisible(), u"the main window is still there"_s);
}

void Tour::picture_of_month(const QString& name) {
    open_month();
    picture(name);
}

const entry::ent_rovena& Tour::form() {
    return m_clerk.entry().form();
}

qint64 Tour::employee() {
    return Val(form().syainsyscd);
}

void Tour::demand_none(const QStringList& faults, const QString& what) {
    demand(faults.isEmpty(), what + u":\n  "_s + faults.join(u"\n  "_s));
}

void Tour::resize_window(QSize size) {
    m_program.window().showNormal();
    m_program.window().resize(size);
    QTest::qWait(0);
}

void Tour::picture(const QString& name) {
    demand_none(m_boxes.unexpected(), u"a message that nobody awaited"_s);
    QTest::qWait(0);
    save_picture(m_program.window(), m_out, name);
}

} // namespace tour
