#include "base/company_month.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "reports/pages/font_fit.h"
#include "reports/pages/page_frame.h"
#include "reports/pages/page_layouts.h"
#include "reports/tallies/attendance_detail.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace reports {

using namespace base;

namespace {

constexpr int slots = 12;            ///< printed columns of a sheet of paper
constexpr std::array identity{0, 1}; ///< day and weekday, on both sheets
constexpr FurtherSheet second_sheet{slots, identity.back()};

using Slots = std::vector<int>;

std::vector<Slots> sheets_across(int cols) {
    Slots first(size_t(std::min(cols, slots)));
    std::iota(first.begin(), first.end(), 0);
    if (cols <= slots)
        return {first};
    Slots second(identity.begin(), identity.end());
    for (int col = slots; col < cols && std::ssize(second) < slots; ++col)
        second.push_back(col);
    return {first, second};
}

void add_heading(Page& page, const Report& report, QDate today, int number, int count) {
    constexpr HeadLine employee{.place = {.x = 60, .y = 15}, .size = 12};
    constexpr HeadLine sub_heading{.place = {.x = 100, .y = 13}};
    constexpr HeadLine page_number{.place = {.x = 175, .y = 15}};
    add_head_line(page, title_line, report.midasi[0]);
    add_head_line(page, employee, report.midasi[1]);
    add_head_line(page, sub_heading, report.midasi[2]);
    add_spare_lines(page, report);
    add_print_date(page, today);
    add_head_line(page, page_number, u"(%1/%2ページ)"_s.arg(number).arg(count));
}

void add_column(Page& page, const PageConstants& constants, const Sheet& hyou, int col, const PlacedColumn& column) {
    if (!column.printed())
        return;
    for (int row = 1; row <= total_row && row < hyou.Rows(); ++row)
        add_cell(page, column.item, hyou(row, col), {.x = column.left, .y = constants.row_y(row + 1)});
}

constexpr double day_box_width = 20;

/// One half of a box of the day counts.
void add_half_box(Page& page, Place corner, const QString& text) {
    constexpr int kept_characters = 6;
    constexpr double text_drop = 1;
    const QString kept = whole_left(text, kept_characters);
    add_fitted(page, kept, centred_inset(day_box_width, kept), corner + Place{.y = text_drop}, day_box_width);
}

/// A box of the day counts: the kind above, its count below.
void add_day_box(Page& page, Place corner, const Sheet& hyou_day, int col) {
    constexpr double half = 6;
    const double right = corner.x + day_box_width;
    const double middle = corner.y + half;
    add_half_box(page, corner, hyou_day(detail::strip_name, col));
    add_half_box(page, {.x = corner.x, .y = middle}, hyou_day(detail::strip_count, col));
    add_rectangle(page, {.left = corner.x, .top = corner.y, .right = right, .bottom = middle}, inner_line);
    add_rectangle(page, {.left = corner.x, .top = middle, .right = right, .bottom = middle + half}, inner_line);
}

void add_day_boxes(Page& page, const Box& table, const Sheet& hyou_day) {
    constexpr int boxes_in_a_row = 9;
    constexpr double row_height = 14;
    constexpr double below_the_top = 200;
    for (int col = 0; col < hyou_day.Cols() && hyou_day.Contains(detail::strip_count, col); ++col)
        add_day_box(page,
            {.x = table.left + col % boxes_in_a_row * day_box_width,
                .y = table.top + below_the_top + col / boxes_in_a_row * row_height},
            hyou_day, col);
}

} // namespace

Pages attendance_pages(const Report& report, QDate today) {
    const PageConstants& constants = 印刷設定取得(Layout::Attendance);
    const PlacedColumns placed = place_columns(report, constants.table.left, std::span(&second_sheet, 1));
    const std::vector<Slots> sheets = sheets_across(report.hyou.Cols());
    Pages pages;
    for (const Slots& cols : sheets) {
        Page& page = pages.emplace_back();
        for (const int col : cols)
            add_column(page, constants, report.hyou, col, placed.columns[size_t(col)]);
        add_heading(page, report, today, int(pages.size()), int(sheets.size()));
        add_columns(page, constants, placed, cols, LineRoom::FurtherColumn);
        add_box(page, constants.table);
    }
    add_day_boxes(pages.front(), constants.table, report.hyou_day);
    return pages;
}

} // namespace reports
