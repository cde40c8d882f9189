#include "entry/layout.h"

#include "base/columns.h"
#include "base/literals.h"
#include "entry/cells.h"

#include <array>

namespace entry {

using namespace base;

namespace {

constexpr Column hyou_columns[] = {
    {u"日", 500, Alignment::Center},
    {u"曜", 500, Alignment::Center},
    {u"出社時間", 900, Alignment::Center},
    {u"退社時間", 900, Alignment::Center},
    {u"休憩時間", 900, Alignment::Center},
    {u"勤務時間", 900, Alignment::Center},
    {u"備考", remark_width, Alignment::Left},
    {u"", 900, Alignment::Center},
};

constexpr Column syain_columns[] = {
    {u"社員番号", 1400, Alignment::Left},
    {u"社員名", 1900, Alignment::Left},
    {u"システム番号", 0, Alignment::Left},
};

/// The two fixed sums, and room for the kinds and categories of a work type.
constexpr std::array strip_columns = [] {
    std::array<Column, 10> columns{};
    columns.fill({u"", strip_width, Alignment::Center});
    columns[strip::worked_column].heading = u"出勤";
    columns[strip::unworked_column].heading = u"休暇";
    return columns;
}();

base::Sheet empty_record() {
    base::Sheet hyou_system(row::count, 4);
    for (int column = 0; column <= 2; ++column)
        hyou_system.SetColWidth(column, 800);
    return hyou_system;
}

void colour_total_row(base::Sheet& hyou) {
    for (int column = 0; column < hyou.Cols(); ++column)
        hyou.SetCellBack(row::total, column, total_back);
}

void set_rows(base::Sheet& hyou) {
    hyou(row::total, col::day) = u"合計"_s;
    hyou(row::category_number, col::day) = u"勤務TypeCD"_s;
    for (int r = row::total + 1; r < row::count; ++r)
        hyou.SetRowHeight(r, 0);
    for (int r = row::first_day; r <= row::last_day; ++r)
        hyou.SetCellBack(r, col::weekday, white);
    colour_total_row(hyou);
}

} // namespace

void 書式設定(MonthSheet& sheet, const CompanyMonth& month) {
    sheet.month = month;
    sheet.pending_cell.reset();
    sheet.hyou_system = empty_record();
    lay_out(sheet.hyou, hyou_columns, row::count, /*fixed_cols=*/2);
    set_rows(sheet.hyou);
    for (int r = row::first_day; r <= month.length(); ++r)
        show_date(sheet.hyou, r, month.day(r));
}

void 書式設定_日(MonthSheet& sheet) {
    lay_out(sheet.hyou_day, strip_columns, 3);
    sheet.hyou_day.SetRowHeight(strip::tag, 0);
    sheet.hyou_day(strip::tag, strip::worked_column) = u"-1"_s;
    sheet.hyou_day(strip::tag, strip::unworked_column) = u"-2"_s;
}

void 書式設定_社員(base::Sheet& hyou_syain) {
    lay_out(hyou_syain, syain_columns, 2);
}

void format_strip_column(base::Sheet& hyou_day, int column) {
    hyou_day.SetColWidth(column, strip_width);
    hyou_day.SetColAlignment(column, Alignment::Center);
}

} // namespace entry
