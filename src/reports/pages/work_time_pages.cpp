#include "base/literals.h"
#include "base/numbers.h"
#include "reports/pages/font_fit.h"
#include "reports/pages/page_frame.h"
#include "reports/pages/page_layouts.h"

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
constexpr int total_row = 2; ///< of the sheet; the employees follow

using Slots = std::vector<int>;

/// A second sheet is begun one column before it has one of its own.
int sheet_count(int cols) {
    constexpr int on_one = 16;
    constexpr int on_two = 30;
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
    add_text(page, report.midasi[0], 16, 8, 20);
    add_text(page, report.midasi[1] + u"  "_s + report.midasi[2], 12, 15, 60);
    add_text(page, spare_lines(report), heading_size, 18, 20);
    add_text(page, print_date(today), heading_size, 15, 20);
    add_text(page, digits(number) + u"　ページ"_s, heading_size, 16, 270);
}

struct WorkTimeSheet {
    const Report& report;
    const PageConstants& table;
    PlacedColumns placed;

    const Sheet& hyou() const { return report.hyou; }
    const PlacedColumn& column(int col) const { return placed.columns[size_t(col)]; }
};

/// The rows of one page; page 0 begins with the totals.
void add_rows(Page& page, const WorkTimeSheet& sheet, int page_down, const Slots& cols) {
    const int first = total_row + page_down * sheet.table.rows();
    const int end = std::min(first + sheet.table.rows(), sheet.hyou().Rows());
    for (int row = first; row < end; ++row)
        for (const int col : cols)
            if (sheet.column(col).printed())
                add_cell(page, sheet.column(col).item, sheet.hyou()(row, col),
                    sheet.table.row_y(sheet.table.first_row + row - first), sheet.column(col).left);
}

void add_first_frame(Page& page, const WorkTimeSheet& sheet, const Slots& cols) {
    constexpr size_t with_heading = slots - 1;
    add_columns(page, sheet.table, sheet.placed, std::span(cols).first(std::min(cols.size(), with_heading)));
}

/// The headings of the work categories are fitted as cells are; the lines stand whether there is a column or not.
void add_further_frame(Page& page, const WorkTimeSheet& sheet, const Slots& cols) {
    constexpr double first_line = 83;
    constexpr double pitch = 14;
    for (const int col : std::span(cols).subspan(identity.size())) {
        const PlacedColumn& column = sheet.column(col);
        const double inset = column.item.項目位置.value_or(0);
        const double width = column.item.項目幅;
        const QString heading = cut_to_room(column.item.項目名, width - inset);
        add_fitted(page, heading, sheet.table.heading_y() + 1, column.left, width, inset);
    }
    for (int i = 1; i <= further_columns; ++i)
        add_vertical_line(page, sheet.table, first_line + i * pitch);
}

} // namespace

Pages work_time_pages(const Report& report, QDate today) {
    const PageConstants& table = 印刷設定取得(Layout::WorkTime);
    const WorkTimeSheet sheet{report, table, place_columns(report.hyou, report.帳票番号, table.left, further_sheets)};
    const int rows = report.hyou.Rows() - total_row;
    const int pages_down = (rows + table.rows() - 1) / table.rows();
    Pages pages;
    for (int down = 0; down < pages_down; ++down)
        for (int across = 0; across < sheet_count(report.hyou.Cols()); ++across) {
            const Slots cols = columns_of_sheet(across, report.hyou.Cols());
            Page& page = pages.emplace_back();
            add_rows(page, sheet, down, cols);
            add_heading(page, report, today, int(pages.size()));
            across == 0 ? add_first_frame(page, sheet, cols) : add_further_frame(page, sheet, cols);
            add_box(page, table);
        }
    return pages;
}

} // namespace reports
