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
Pages rows_on_pages(int rows, const PageConstants& table, AddRow add_row) {
    Pages pages;
    for (int row = 0; row < rows; ++row) {
        const int place = row % table.rows();
        if (place == 0)
            pages.emplace_back();
        add_row(pages.back(), row, table.row_y(table.first_row + place));
    }
    return pages;
}

void add_heading(Page& page, const Report& report, QDate today, int number) {
    add_text(page, report.midasi[0], 16, 8, 20);
    add_text(page, report.midasi[1], heading_size, 8, 100);
    add_text(page, report.midasi[2], heading_size, 13, 100);
    add_text(page, print_date(today), heading_size, 15, 20);
    add_text(page, spare_lines(report), heading_size, 18, 20);
    add_text(page, digits(number) + u"　ページ"_s, heading_size, 16, 183);
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
    const PageConstants& table = 印刷設定取得(Layout::Lists);
    const Sheet& hyou = report.hyou;
    const PlacedColumns placed = place_columns(hyou, report.帳票番号, table.left);
    const std::vector<int> cols = all_columns(hyou);
    Pages pages = rows_on_pages(hyou.Rows() - 1, table, [&](Page& page, int row, double y) {
        for (const int col : cols)
            if (const PlacedColumn& column = placed.columns[size_t(col)]; column.printed())
                add_cell(page, column.item, hyou(row + 1, col), y, column.left);
    });
    int number = 0;
    for (Page& page : pages) {
        add_heading(page, report, today, ++number);
        add_columns(page, table, placed, cols);
        add_box(page, table);
    }
    return pages;
}

Pages error_list_pages(const Sheet& hyou) {
    constexpr double title_size = 16;
    constexpr double headings_x = 90;
    const PageConstants& table = 印刷設定取得(Layout::Lists);
    const QStringList lines = message_lines(hyou, int((table.right - table.left) / half_width));
    Pages pages = rows_on_pages(int(lines.size()), table,
        [&](Page& page, int row, double y) { add_text(page, lines[row], cell_size, y, table.left); });
    for (Page& page : pages) {
        add_text(page, u"エラーリスト"_s, title_size, 10, 95);
        for (const int col : all_columns(hyou))
            add_text(page, 項目定義取得_エラー(col).項目名, cell_size, table.heading_y(), headings_x);
        add_box(page, table, thin_line, thin_line);
    }
    return pages;
}

} // namespace reports
