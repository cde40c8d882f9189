#include "entry/layout.h"

#include "base/columns.h"
#include "entry/cells.h"

namespace entry {

namespace {

constexpr Column hyou_columns[] = {
    {u"日", 500, Alignment::Center},
    {u"曜", 500, Alignment::Center},
    {u"出社時間", 900, Alignment::Center},
    {u"退社時間", 900, Alignment::Center},
    {u"休憩時間", 900, Alignment::Center},
    {u"勤務時間", 900, Alignment::Center},
    {u"備考", 900, Alignment::Left},
    {u"", 900, Alignment::Center},
};

constexpr Column syain_columns[] = {
    {u"社員番号", 1400, Alignment::Left},
    {u"社員名", 1900, Alignment::Left},
    {u"システム番号", 0, Alignment::Left},
};

void set_columns(base::Sheet& sheet, std::span<const Column> columns) {
    for (int i = 0; i < static_cast<int>(columns.size()); ++i) {
        sheet(0, i) = columns[i].heading.toString();
        sheet.setColWidth(i, columns[i].width);
        sheet.setColAlignment(i, columns[i].alignment);
    }
}

void reset(base::Sheet& sheet, int rows, int cols) {
    const Cell cursor{sheet.Row(), sheet.Col()};
    sheet = base::Sheet(rows, cols);
    sheet.setCursor(cursor);
}

void reset_record(base::Sheet& hyou_system) {
    reset(hyou_system, row::count, 4);
    for (int column = 0; column <= 2; ++column)
        hyou_system.setColWidth(column, 800);
}

void colour_total_row(base::Sheet& hyou) {
    for (int column = 0; column < hyou.Cols(); ++column)
        hyou.setBack(row::total, column, total_back);
}

void set_rows(base::Sheet& hyou) {
    hyou(row::total, col::day) = u"合計"_s;
    hyou(row::category_number, col::day) = u"勤務TypeCD"_s;
    for (int r = row::total + 1; r < row::count; ++r)
        hyou.setRowHeight(r, 0);
    for (int r = row::first_day; r <= row::last_day; ++r)
        hyou.setBack(r, col::weekday, white);
    colour_total_row(hyou);
}

} // namespace

void 書式設定(MonthSheet& sheet, const CompanyMonth& month) {
    sheet.month = month;
    sheet.pending_cell.reset();
    reset_record(sheet.hyou_system);
    reset(sheet.hyou, row::count, col::first_category);
    sheet.hyou.setFixed(1, 2);
    set_columns(sheet.hyou, hyou_columns);
    set_rows(sheet.hyou);
    for (int r = row::first_day; r <= month.length(); ++r)
        show_date(sheet.hyou, r, month.day(r));
}

void 書式設定_日(MonthSheet& sheet) {
    base::Sheet& strip_sheet = sheet.hyou_day;
    reset(strip_sheet, 3, 10);
    strip_sheet.setFixed(1, 0);
    strip_sheet.setRowHeight(strip::tag, 0);
    strip_sheet(strip::name, strip::worked_column) = u"出勤"_s;
    strip_sheet(strip::tag, strip::worked_column) = u"-1"_s;
    strip_sheet(strip::name, strip::unworked_column) = u"休暇"_s;
    strip_sheet(strip::tag, strip::unworked_column) = u"-2"_s;
    for (int column = 0; column < strip_sheet.Cols(); ++column)
        format_strip_column(strip_sheet, column);
}

void 書式設定_社員(base::Sheet& hyou_syain) {
    reset(hyou_syain, 2, 3);
    hyou_syain.setFixed(1, 0);
    set_columns(hyou_syain, syain_columns);
}

void format_strip_column(base::Sheet& hyou_day, int column) {
    hyou_day.setColWidth(column, strip_width);
    hyou_day.setColAlignment(column, Alignment::Center);
}

} // namespace entry
