#include "reports/pages/page_frame.h"

#include "base/literals.h"

#include <algorithm>

namespace reports {

using namespace base;

namespace {

/// A heading that the column is too narrow for would run into the next one, so it is made smaller as cells are, and cut
/// where the smallest letters have no room.
void add_heading(Page& page, const PlacedColumn& column, double y) {
    const double width = column.item.項目幅;
    add_centred(page, cut_to_room(column.item.項目名, width), heading_size, {.x = column.left, .y = y}, width);
}

bool has_line(const Box& table, const PlacedColumns& columns, int col, LineRoom room) {
    const PlacedColumn& column = columns.columns[size_t(col)];
    const double needed = room == LineRoom::FurtherColumn ? column.item.項目幅 : 0;
    return column.right + needed < table.right && (col != columns.last || column.item.縦線区切 == 1);
}

} // namespace

PlacedColumns place_columns(const Report& report, double left, std::span<const FurtherSheet> sheets) {
    PlacedColumns placed;
    for (int col = 0; col < report.hyou.Cols(); ++col) {
        const auto sheet = std::ranges::find(sheets, col, &FurtherSheet::column);
        if (sheet != sheets.end())
            left = placed.columns[size_t(sheet->behind)].right;
        印刷項目 item = 項目定義取得(col, report);
        const double width = item.項目幅;
        placed.columns.push_back({std::move(item), left, left + width});
        left += width;
        if (width != 0)
            placed.last = col;
    }
    return placed;
}

void add_columns(Page& page, const PageConstants& constants, const PlacedColumns& columns, std::span<const int> cols,
    LineRoom room) {
    for (const int col : cols) {
        const PlacedColumn& column = columns.columns[size_t(col)];
        if (!column.printed())
            continue;
        add_heading(page, column, constants.heading_y());
        if (has_line(constants.table, columns, col, room))
            add_vertical_line(page, constants.table, column.right);
    }
}

void add_vertical_line(Page& page, const Box& table, double x) {
    page.lines.push_back({{.x = x, .y = table.top}, {.x = x, .y = table.bottom}, inner_line});
}

void add_box(Page& page, const Box& table, RowLines lines) {
    add_rectangle(page, table, outer_line);
    int width = lines.under_heading;
    for (double y = table.top + row_pitch; y <= table.bottom - row_pitch; y += row_pitch) {
        page.lines.push_back({{.x = table.left, .y = y}, {.x = table.right, .y = y}, width});
        width = lines.between_rows;
    }
}

void add_head_line(Page& page, const HeadLine& line, const QString& text) {
    add_text(page, text, line.size, line.place);
}

void add_print_date(Page& page, QDate today) {
    add_head_line(page, print_date_line, today.toString(u"yyyy年MM月dd日印刷"_s));
}

void add_spare_lines(Page& page, const Report& report) {
    add_head_line(page, spare_line, report.midasi[3] + u' ' + report.midasi[4]);
}

} // namespace reports
