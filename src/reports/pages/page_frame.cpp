#include "reports/pages/page_frame.h"

#include "base/literals.h"
#include "reports/pages/font_fit.h"

#include <algorithm>

namespace reports {

using namespace base;

namespace {

/// A heading that the column is too narrow for would run into the next one, so it is made smaller as cells are, and cut
/// where the smallest letters have no room.
void add_heading(Page& page, const PlacedColumn& column, double y) {
    const double width = column.item.項目幅;
    add_centred(page, cut_to_room(column.item.項目名, width), heading_size, y, column.left, width);
}

bool has_line(const PageConstants& table, const PlacedColumns& columns, int col, LineRoom room) {
    const PlacedColumn& column = columns.columns[size_t(col)];
    const double needed = room == LineRoom::FurtherColumn ? column.item.項目幅 : 0;
    return column.right + needed < table.right && (col != columns.last || column.item.縦線区切 == 1);
}

} // namespace

PlacedColumns place_columns(const base::Sheet& hyou, int 帳票番号, double left, std::span<const FurtherSheet> sheets) {
    PlacedColumns placed;
    for (int col = 0; col < hyou.Cols(); ++col) {
        const auto sheet = std::ranges::find(sheets, col, &FurtherSheet::column);
        if (sheet != sheets.end())
            left = placed.columns[size_t(sheet->behind)].right;
        印刷項目 item = 項目定義取得(col, 帳票番号, hyou);
        const double width = item.項目幅;
        placed.columns.push_back({std::move(item), left, left + width});
        left += width;
        if (width != 0)
            placed.last = col;
    }
    return placed;
}

void add_columns(
    Page& page, const PageConstants& table, const PlacedColumns& columns, std::span<const int> cols, LineRoom room) {
    for (const int col : cols) {
        const PlacedColumn& column = columns.columns[size_t(col)];
        if (!column.printed())
            continue;
        add_heading(page, column, table.heading_y());
        if (has_line(table, columns, col, room))
            add_vertical_line(page, table, column.right);
    }
}

void add_vertical_line(Page& page, const PageConstants& table, double x) {
    page.lines.push_back({x, table.top, x, table.bottom, inner_line});
}

void add_box(Page& page, const PageConstants& table, int under_heading, int between_rows) {
    add_rectangle(page, table.left, table.top, table.right, table.bottom, outer_line);
    int width = under_heading;
    for (double y = table.top + row_pitch; y <= table.bottom - row_pitch; y += row_pitch) {
        page.lines.push_back({table.left, y, table.right, y, width});
        width = between_rows;
    }
}

QString print_date(QDate today) {
    return today.toString(u"yyyy年MM月dd日印刷"_s);
}

QString spare_lines(const Report& report) {
    return report.midasi[3] + u' ' + report.midasi[4];
}

} // namespace reports
