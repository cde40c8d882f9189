#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "reports/pages/font_fit.h"
#include "reports/pages/page_frame.h"
#include "reports/pages/page_layouts.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace reports {

using namespace base;

namespace {

constexpr int slots = 12;            ///< printed columns of a sheet of paper
constexpr std::array identity{0, 1}; ///< day and weekday, on both sheets
constexpr FurtherSheet second_sheet{slots, identity.back()};
constexpr int last_row = 32; ///< the month's total

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
    add_text(page, report.midasi[0], 16, 8, 20);
    add_text(page, report.midasi[1], 12, 15, 60);
    add_text(page, report.midasi[2], heading_size, 13, 100);
    add_text(page, spare_lines(report), heading_size, 18, 20);
    add_text(page, print_date(today), heading_size, 15, 20);
    add_text(page, u"(%1/%2ページ)"_s.arg(number).arg(count), heading_size, 15, 175);
}

void add_column(Page& page, const PageConstants& table, const Sheet& hyou, int col, const PlacedColumn& column) {
    if (!column.printed())
        return;
    for (int row = 1; row <= last_row && row < hyou.Rows(); ++row)
        add_cell(page, column.item, hyou(row, col), table.row_y(row + 1), column.left);
}

/// A box of the day counts: the kind above, its count below.
void add_day_box(Page& page, double left, double top, const QString& name, const QString& count) {
    constexpr double width = 20;
    constexpr double half = 6;
    constexpr int kept_characters = 6;
    const auto add = [&](const QString& text, double y) {
        const QString kept = whole_left(text, kept_characters);
        add_fitted(page, kept, y, left, width, centred_inset(width, kept));
    };
    add(name, top + 1);
    add(count, top + 7);
    add_rectangle(page, left, top, left + width, top + half, inner_line);
    add_rectangle(page, left, top + half, left + width, top + 2 * half, inner_line);
}

void add_day_boxes(Page& page, const PageConstants& table, const Sheet& hyou_day) {
    constexpr int boxes_in_a_row = 9;
    constexpr double box_width = 20;
    constexpr double row_height = 14;
    constexpr int name_row = 0;
    constexpr int count_row = 2;
    for (int col = 0; col < hyou_day.Cols() && hyou_day.contains(count_row, col); ++col)
        add_day_box(page, table.left + col % boxes_in_a_row * box_width,
            table.top + 200 + col / boxes_in_a_row * row_height, hyou_day(name_row, col), hyou_day(count_row, col));
}

} // namespace

Pages attendance_pages(const Report& report, QDate today) {
    const PageConstants& table = 印刷設定取得(Layout::Attendance);
    const PlacedColumns placed = place_columns(report.hyou, report.帳票番号, table.left, std::span(&second_sheet, 1));
    const std::vector<Slots> sheets = sheets_across(report.hyou.Cols());
    Pages pages;
    for (const Slots& cols : sheets) {
        Page& page = pages.emplace_back();
        for (const int col : cols)
            add_column(page, table, report.hyou, col, placed.columns[size_t(col)]);
        add_heading(page, report, today, int(pages.size()), int(sheets.size()));
        add_columns(page, table, placed, cols, LineRoom::FurtherColumn);
        add_box(page, table);
    }
    add_day_boxes(pages.front(), table, report.hyou_day);
    return pages;
}

} // namespace reports
