#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "reports/pages/font_fit.h"
#include "reports/pages/page_frame.h"
#include "reports/pages/page_layouts.h"

#include <numeric>

namespace reports {

using namespace base;

namespace {

std::vector<int> all_columns(const Sheet& hyou) {
    std::vector<int> cols(size_t(hyou.Cols()));
    std::iota(cols.begin(), cols.end(), 0);
    return cols;
}

/// So many body rows, counted from 0, a page after the other.
template <typename AddRow>
Pages rows_on_pages(int rows, const PageConstants& constants, AddRow add_row) {
    Pages pages;
    for (int row = 0; row < rows; ++row) {
        const int on_page = row % constants.rows();
        if (on_page == 0)
            pages.emplace_back();
        add_row(pages.back(), row, constants.row_y(constants.first_row + on_page));
    }
    return pages;
}

void add_heading(Page& page, const Report& report, QDate today, int number) {
    constexpr HeadLine first_sub_heading{.place = {.x = 100, .y = 8}};
    constexpr HeadLine second_sub_heading{.place = {.x = 100, .y = 13}};
    constexpr HeadLine page_number{.place = {.x = 183, .y = 16}};
    add_head_line(page, title_line, report.midasi[0]);
    add_head_line(page, first_sub_heading, report.midasi[1]);
    add_head_line(page, second_sub_heading, report.midasi[2]);
    add_print_date(page, today);
    add_spare_lines(page, report);
    add_head_line(page, page_number, digits(number) + u"　ページ"_s);
}

/// The messages below the heading row; what is too long for one line goes on in the next.
QStringList message_lines(const Sheet& hyou, int room) {
    QStringList lines;
    for (int row = 1; row < hyou.Rows(); ++row) {
        QString message = Trim(hyou(row, 0));
        do {
            lines << left_bytes(message, room);
            message.remove(0, lines.back().size());
        } while (!message.isEmpty());
    }
    return lines;
}

} // namespace

Pages list_pages(const Report& report, QDate today) {
    const PageConstants& constants = 印刷設定取得(Layout::Lists);
    const Sheet& hyou = report.hyou;
    const PlacedColumns placed = place_columns(report, constants.table.left);
    const std::vector<int> cols = all_columns(hyou);
    Pages pages = rows_on_pages(hyou.Rows() - 1, constants, [&](Page& page, int row, double y) {
        for (const int col : cols)
            if (const PlacedColumn& column = placed.columns[size_t(col)]; column.printed())
                add_cell(page, column.item, hyou(row + 1, col), {.x = column.left, .y = y});
    });
    int number = 0;
    for (Page& page : pages) {
        add_heading(page, report, today, ++number);
        add_columns(page, constants, placed, cols);
        add_box(page, constants.table);
    }
    return pages;
}

Pages error_list_pages(const Sheet& hyou) {
    constexpr HeadLine title{.place = {.x = 95, .y = 10}, .size = title_line.size};
    constexpr double headings_x = 90;
    const PageConstants& constants = 印刷設定取得(Layout::Lists);
    const Box& table = constants.table;
    const QStringList lines = message_lines(hyou, int((table.right - table.left) / half_width));
    Pages pages = rows_on_pages(int(lines.size()), constants,
        [&](Page& page, int row, double y) { add_text(page, lines[row], cell_size, {.x = table.left, .y = y}); });
    for (Page& page : pages) {
        add_head_line(page, title, u"エラーリスト"_s);
        for (const int col : all_columns(hyou))
            add_text(page, 項目定義取得_エラー(col).項目名, cell_size, {.x = headings_x, .y = constants.heading_y()});
        add_box(page, table, {.under_heading = thin_line, .between_rows = thin_line});
    }
    return pages;
}

} // namespace reports
