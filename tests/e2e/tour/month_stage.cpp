// The month: typed, calculated, saved, applied by the exchange manager and opened again; what is read back must be what
// was typed. The tables are left as a text dump.

#include "base/literals.h"
#include "base/numbers.h"
#include "stage.h"
#include "support/person.h"

#include <QFile>
#include <algorithm>

namespace tour {

using namespace base;
using e2e::demand;

namespace {

constexpr int days_before_picture = 8;

qint64 employee(Tour& tour) {
    return Val(tour.entry_form().syainsyscd);
}

QList<e2e::TypedDay> type_month(Tour& tour) {
    e2e::Clerk clerk = tour.clerk();
    const base::Sheet& hyou = tour.entry_form().sheet.hyou;
    const auto days = e2e::plan_month(hyou, tour.company.leave, tour.company.sunday_work);
    clerk.type_days(days.first(days_before_picture));
    support::type_word(days[days_before_picture].clock_in);
    tour.picture(u"typing-clock-times"_s);
    clerk.type_days(days.sliced(days_before_picture));
    clerk.type_remarks(days);
    tour.picture(u"remarks-typed"_s);
    clerk.choose_kinds(days);
    tour.picture(u"kinds-chosen"_s);
    clerk.type_count(entry::strip::first_kind, u"3"_s);
    tour.picture(u"month-typed"_s);
    demand_none(e2e::missing_on_sheet(hyou, days), u"what was typed isn't on the sheet"_s);
    return days;
}

QStringList calculated(const base::Sheet& hyou, int row) {
    QStringList cells{hyou(row, entry::col::break_time), hyou(row, entry::col::work_time)};
    for (int col = entry::col::first_category; col < hyou.Cols(); ++col)
        cells << hyou(row, col);
    return cells;
}

/// Days on which the rules don't give what they must; without a day at all for some figures, that is a fault too.
QStringList wrong_figures(const base::Sheet& hyou, const QList<e2e::TypedDay>& days, const QList<Figures>& wanted) {
    QStringList faults;
    for (const Figures& figures : wanted) {
        int found = 0;
        for (const e2e::TypedDay& day : days) {
            if (day.clock_in != figures.clock_in || day.clock_out != figures.clock_out || !day.pause.isEmpty())
                continue;
            ++found;
            const QStringList cells = calculated(hyou, day.row);
            if (cells != figures.cells)
                faults << u"row %1: %2 wanted, %3 shown"_s.arg(day.row).arg(figures.cells.join(u' '), cells.join(u' '));
        }
        if (found == 0)
            faults << u"no day from %1 to %2 was typed"_s.arg(figures.clock_in, figures.clock_out);
    }
    return faults;
}

void save(Tour& tour, const QList<e2e::TypedDay>& typed) {
    tour.clerk().press_button(u"登録"_s);
    tour.picture(u"month-saved"_s);
    e2e::wait_for_manager(tour.settings());
    demand_none(e2e::missing_in_tables(tour.settings(), employee(tour), tour.entry_form().sheet.month, typed),
        u"not in the tables"_s);
}

void read_back(Tour& tour, const QList<e2e::TypedDay>& typed, const entry::MonthSheet& saved) {
    tour.open_month();
    tour.picture(u"month-read-again"_s);
    const entry::MonthSheet& again = tour.entry_form().sheet;
    demand_none(e2e::missing_on_sheet(again.hyou, typed), u"what was typed isn't read back"_s);
    demand_none(e2e::differences(u"hyou"_s, saved.hyou, again.hyou, entry::row::total + 1), u"the sheet differs"_s);
    demand_none(e2e::differences(u"hyou_day"_s, saved.hyou_day, again.hyou_day, again.hyou_day.Rows()),
        u"the count strip differs"_s);
}

void dump_tables(Tour& tour, const QString& name) {
    QFile dump(tour.out().filePath(name));
    demand(dump.open(QIODevice::WriteOnly), u"can't write "_s + dump.fileName());
    dump.write(e2e::dump_tables(tour.settings(), employee(tour), tour.entry_form().sheet.month).toUtf8());
}

void keep_typed(Tour& tour) {
    const entry::ent_rovena& form = tour.entry_form();
    const int row = tour.company.employee_row;
    tour.company.typed = {form.hyou_syain(row, 0), form.hyou_syain(row, 1), totals_of(form.sheet.hyou)};
}

} // namespace

void enter_month(Tour& tour) {
    tour.open_month();
    tour.picture(u"employee-chosen"_s);
    const QList<e2e::TypedDay> typed = type_month(tour);
    demand_none(wrong_figures(tour.entry_form().sheet.hyou, typed, tour.company.weekday_figures),
        u"the day isn't calculated by the rules that were typed"_s);
    save(tour, typed);
    const entry::MonthSheet saved = tour.entry_form().sheet;
    read_back(tour, typed, saved);
    keep_typed(tour);
    dump_tables(tour, u"tables-%1.txt"_s.arg(tour.company.name));
}

} // namespace tour
