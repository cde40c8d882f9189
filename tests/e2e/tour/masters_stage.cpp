// The masters, each through its own screen: categories, a work type, day kinds, employees, the assignment.

#include "base/literals.h"
#include "masters/week_buffer.h"
#include "stage.h"
#include "support/person.h"
#include "typed_masters.h"

namespace tour {

using namespace base;
using masters::band_col::category_name;

namespace {

constexpr int every_day_column = 7;
constexpr int saturday_column = 6;
constexpr int assigned_type_col = 2;

void open_master(Tour& tour, const QString& button) {
    tour.clerk().press_button(u"マスター"_s);
    tour.clerk().press_button(button);
}

void close_master(Tour& tour, const QString& picture) {
    tour.picture(picture);
    tour.clerk().press_button(u"閉じる"_s);
}

/// A name is saved from its second change on, so it is converted in two pieces.
void type_categories(Tour& tour) {
    open_master(tour, u"勤務種類"_s);
    e2e::Clerk clerk = tour.clerk();
    for (const QStringView name : typed_categories) {
        clerk.click_cell(u"hyou"_s, clerk.grid(u"hyou"_s).sheet().Rows() - 1, 1);
        support::type_word(name.first(2).toString());
        clerk.type_line(name.sliced(2).toString());
    }
    close_master(tour, u"categories-typed"_s);
}

void type_band(e2e::Clerk& clerk, int row, const TypedBand& band) {
    clerk.click_cell(u"hyou"_s, row, masters::band_col::start);
    clerk.type_line(band.start.toString());
    support::type_word(band.end.toString());
    clerk.click_cell(u"hyou"_s, row, category_name);
    clerk.choose_item(band.category.toString());
    clerk.click_cell(u"hyou"_s, row, masters::band_col::mode_name);
    clerk.choose_item(u"通常"_s);
    if (band.threshold.isEmpty())
        return;
    clerk.click_cell(u"hyou"_s, row, masters::band_col::first_rule);
    support::type_word(band.threshold.toString());
    support::press(Qt::Key_Right);
    support::type_word(band.pause.toString());
}

void empty_times(e2e::Clerk& clerk, int row) {
    for (const int col : {masters::band_col::start, masters::band_col::end}) {
        clerk.click_cell(u"hyou"_s, row, col);
        support::press(Qt::Key_Backspace);
    }
}

/// Each day is looked at once after the day set: only so are the break rules of all days what was typed.
void type_work_type(Tour& tour) {
    open_master(tour, u"勤務タイプ時間設定"_s);
    e2e::Clerk clerk = tour.clerk();
    support::type_word(typed_type.toString());
    clerk.click_cell(u"hyou_youbi"_s, 0, every_day_column);
    int row = 0;
    for (const TypedBand& band : every_day)
        type_band(clerk, ++row, band);
    tour.picture(u"every-day-typed"_s);
    tour.boxes().await(u"毎日、この設定で変更しますか？"_s, u"はい"_s, u"day-set-question"_s);
    for (int day = 0; day <= saturday_column; ++day)
        clerk.click_cell(u"hyou_youbi"_s, 0, day);
    type_band(clerk, 1, saturday);
    empty_times(clerk, 2);
    tour.picture(u"saturday-typed"_s);
    tour.boxes().await(typed_type.toString() + u"を登録します"_s, u"はい"_s, u"work-type-question"_s);
    clerk.press_button(u"登録"_s);
    e2e::demand(tour.boxes().answered(), u"a question about the work type didn't come"_s);
    close_master(tour, u"work-type-registered"_s);
}

void type_kinds(Tour& tour) {
    open_master(tour, u"休暇・出勤"_s);
    e2e::Clerk clerk = tour.clerk();
    for (const TypedKind& kind : typed_kinds) {
        clerk.tick(kind.day_class.toString());
        if (kind.standard)
            clerk.tick(u"標準"_s);
        clerk.click_box(u"名　称"_s);
        clerk.type_line(kind.name.toString());
        support::press(Qt::Key_Return);
    }
    close_master(tour, u"day-kinds-typed"_s);
}

void type_employees(Tour& tour) {
    open_master(tour, u"社員"_s);
    e2e::Clerk clerk = tour.clerk();
    for (const TypedEmployee& employee : typed_employees) {
        clerk.type_line(employee.number.toString());
        clerk.type_line(employee.name.toString());
        clerk.type_line(employee.reading.toString());
        tour.picture(u"employee-"_s + employee.number.toString());
        clerk.press_button(u"登録"_s);
    }
    close_master(tour, u"employees-typed"_s);
}

void assign_type(Tour& tour) {
    open_master(tour, u"社員勤務タイプ設定"_s);
    e2e::Clerk clerk = tour.clerk();
    for (int row = 1; row <= int(std::size(typed_employees)); ++row) {
        clerk.click_cell(u"hyou"_s, row, assigned_type_col);
        clerk.choose_item(typed_type.toString());
    }
    close_master(tour, u"type-assigned"_s);
}

} // namespace

void fill_masters(Tour& tour) {
    tour.picture(u"main-frame-of-a-new-company"_s);
    const TablesBefore before(tour.settings());
    type_categories(tour);
    type_work_type(tour);
    type_kinds(tour);
    type_employees(tour);
    assign_type(tour);
    demand_none(before.faults(), u"the tables don't hold what was typed"_s);
    tour.company = typed_company();
}

} // namespace tour
