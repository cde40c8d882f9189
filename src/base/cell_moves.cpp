#include "base/cell_moves.h"

#include "base/keys.h"

#include <algorithm>

namespace base {

namespace {

std::optional<int> neighbour(std::span<const int> columns, int col, int step) {
    const auto at = std::ranges::find(columns, col);
    const auto next = at - columns.begin() + step;
    if (at == columns.end() || next < 0 || next >= std::ssize(columns))
        return std::nullopt;
    return columns[next];
}

std::optional<Cell> beside(std::span<const int> columns, Cell from, int step) {
    const auto col = neighbour(columns, from.col, step);
    return col ? std::optional(Cell{from.row, *col}) : std::nullopt;
}

std::optional<Cell> row_at(const Sheet& sheet, int row, int col) {
    return row >= sheet.FixedRows() && row < sheet.Rows() ? std::optional(Cell{row, col}) : std::nullopt;
}

template <typename Size>
bool reaches(int cell, int fixed, int first, int room, Size size) {
    if (cell >= fixed && cell < first)
        return false;
    int end = 0;
    for (int i = 0; i <= cell; ++i)
        if (i < fixed || i >= first)
            end += size(i);
    return size(cell) > 0 && end <= room;
}

} // namespace

std::optional<Cell> next_cell(const Sheet& sheet, const CellRoutes& routes, Cell from, int key_code) {
    switch (key_code) {
    case key::enter:
        if (const auto next = beside(routes.enter, from, 1))
            return next;
        return row_at(sheet, from.row + 1, routes.enter.front());
    case key::down:
        return row_at(sheet, from.row + 1, from.col);
    case key::up:
        return row_at(sheet, from.row - 1, from.col);
    case key::right:
        return beside(routes.arrows, from, 1);
    case key::left:
        return beside(routes.arrows, from, -1);
    default:
        return std::nullopt;
    }
}

bool in_view(const Sheet& sheet, Cell cell, int view_width, int view_height) {
    return sheet.Contains(cell.row, cell.col) &&
           reaches(cell.row, sheet.FixedRows(), sheet.TopRow(), view_height,
               [&](int row) { return sheet.RowHeight(row); }) &&
           reaches(
               cell.col, sheet.FixedCols(), sheet.LeftCol(), view_width, [&](int col) { return sheet.ColWidth(col); });
}

} // namespace base
