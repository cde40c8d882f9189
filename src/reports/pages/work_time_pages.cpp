#include "base/literals.h"
#include "base/numbers.h"
#include "reports/pages/font_fit.h"
#include "reports/pages/page_frame.h"
#include "reports/pages/page_layouts.h"
#include "reports/tallies/work_time_list.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace reports {

using namespace base;

namespace {

constexpr int slots = 17;                  ///< printed columns of a sheet of paper
constexpr std::array identity{0, 1, 2, 3}; ///< running number, employee number and name, on every sheet
constexpr int further_columns = slots - int(identity.size());
constexpr std::array further_sheets{
    FurtherSheet{slots, identity.back()}, FurtherSheet{slots + further_columns, identity.back()}};

using Slots = std::vector<int>;

/// A second sheet is begun one column before it has one of its own.
int sheet_count(int cols) {
    constexpr int on_one = slots - 1;
    constexpr int on_two = slots + further_columns;
    return 1 + (cols > on_one) + (cols > on_two);
}

/// Number 0 is the first sheet.
Slots columns_of_sheet(int number, int cols) {
    Slots of_sheet(size_t(number == 0 ? std::min(cols, slots) : int(identity.size())));
    std::iota(of_sheet.begin(), of_sheet.end(), 0);
    if (number == 0)
        return of_sheet;
    const int first = further_sheets[size_t(number) - 1].column;
    for (int col = first; col < cols && col < first + further_columns; ++col)
        of_sheet.push_back(col);
    return of_sheet;
}

void add_heading(Page& page, const Report& report, QDate today, int number) {
    constexpr HeadLine sub_headings{.place = {.x = 60, .y = 15}, .size = 12};
    constexpr HeadLine page_number{.place = {.x = 270, .y = 16}};
    add_head_line(page, title_line, report.midasi[0]);
    add_head_line(page, sub_headings, report.midasi[1] + u"  "_s + report.midasi[2]);
    add_spare_lines(page, report);
    add_print_date(page, today);
    add_head_line(page, page_number, digits(number) + u"　ページ"_s);
}

struct WorkTimeSheet {
    const Report& report;
    const PageConstants& constants;
    PlacedColumns placed;

    const Sheet& hyou() const { return report.hyou; }
    const PlacedColumn& column(int col) const { return placed.columns[size_t(col)]; }
};

/// The rows of one page; page 0 begins with the totals.
void add_rows(Page& page, const WorkTimeSheet& sheet, int page_down, const Slots& cols) {
    const PageConstants& constants = sheet.constants;
    const int first = times::total_row + page_down * constants.rows();
    const int end = std::min(first + constants.rows(), sheet.hyou().Rows());
    for (int row = first; row < end; ++row)
        for (const int col : cols)
            if (sheet.column(col).printed())
                add_cell(page, sheet.column(col).item, sheet.hyou()(row, col),
                    {.x = sheet.column(col).left, .y = constants.row_y(constants.first_row + row - first)});
}

void add_first_frame(Page& page, const WorkTimeSheet& sheet, const Slots& cols) {
    constexpr size_t with_heading = slots - 1;
    add_columns(page, sheet.constants, sheet.placed, std::span(cols).first(std::min(cols.size(), with_heading)));
}

/// The headings of the work categories are fitted as cells are; the lines stand whether there is a column or not.
void add_further_frame(Page& page, const WorkTimeSheet& sheet, const Slots& cols) {
    const double y = sheet.constants.heading_y() + 1;
    for (const int col : std::span(cols).subspan(identity.size())) {
        const PlacedColumn& column = sheet.column(col);
        const double inset = column.item.項目位置.value_or(0);
        const double width = column.item.項目幅;
        const QString heading = cut_to_room(column.item.項目名, width - inset);
        add_fitted(page, heading, inset, {.x = column.left, .y = y}, width);
    }
    const double first_left = sheet.column(identity.back()).right;
    for (int i = 1; i <= further_columns; ++i)
        add_vertical_line(page, sheet.constants.table, first_left + i * category_width);
}

} // namespace

Pages work_time_pages(const Report& report, QDate today) {
    const PageConstants& constants = 印刷設定取得(Layout::WorkTime);
    const WorkTimeSheet sheet{report, constants, place_columns(report, constants.table.left, further_sheets)};
    const int rows = report.hyou.Rows() - times::total_row;
    const int pages_down = (rows + constants.rows() - 1) / constants.rows();
    Pages pages;
    for (int down = 0; down < pages_down; ++down)
        for (int across = 0; across < sheet_count(report.hyou.Cols()); ++across) {
            const Slots cols = columns_of_sheet(across, report.hyou.Cols());
            Page& page = pages.emplace_back();
            add_rows(page, sheet, down, cols);
            add_heading(page, report, today, int(pages.size()));
            across == 0 ? add_first_frame(page, sheet, cols) : add_further_frame(page, sheet, cols);
            add_box(page, constants.table);
        }
    return pages;
}

} // namespace reports
