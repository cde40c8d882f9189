#include "base/sheet.h"

#include "base/numbers.h"

#include <algorithm>
#include <numeric>

namespace base {

namespace {

qint64 look_key(int row, int col) {
    return qint64(row) << 32 | qint64(col);
}

/// What a row is sorted by: numbers stand before texts, since "9", "10" and "1a" would go round in a circle otherwise.
struct SortKey {
    bool is_text;
    qint64 number;
    QString text;

    friend bool operator<(const SortKey& a, const SortKey& b) {
        if (a.is_text != b.is_text)
            return b.is_text;
        return a.is_text ? a.text < b.text : a.number < b.number;
    }
};

SortKey key_of(const QString& cell, SortOrder order) {
    if (order == SortOrder::NumericAscending)
        return {false, Val(cell), {}};
    if (order == SortOrder::TextAscending)
        return {true, 0, cell};
    bool is_number = false;
    const qint64 number = cell.toLongLong(&is_number);
    return is_number ? SortKey{false, number, {}} : SortKey{true, 0, cell};
}

int last_with_size(const QList<int>& sizes) {
    for (auto i = sizes.size() - 1; i > 0; --i)
        if (sizes[i] > 0)
            return static_cast<int>(i);
    return 0;
}

} // namespace

Sheet::Sheet(int rows, int cols) {
    SetCols(cols);
    SetRows(rows);
}

qsizetype Sheet::at(int row, int col) const {
    Q_ASSERT_X(Contains(row, col), "Sheet", "cell outside the sheet");
    return qsizetype(row) * Cols() + col;
}

void Sheet::SetRows(int rows) {
    if (rows < Rows())
        m_looks.removeIf([rows](auto it) { return it.key() >> 32 >= rows; });
    m_row_heights.resize(rows, default_row_height);
    m_cells.resize(qsizetype(rows) * Cols());
    SetCursor(m_cursor);
}

void Sheet::SetCols(int cols) {
    if (cols == Cols())
        return;
    QList<QString> cells(qsizetype(Rows()) * cols);
    const int kept = std::min(cols, Cols());
    for (int row = 0; row < Rows(); ++row)
        for (int col = 0; col < kept; ++col)
            cells[qsizetype(row) * cols + col].swap(m_cells[qsizetype(row) * Cols() + col]);
    m_cells.swap(cells);
    m_col_widths.resize(cols, default_col_width);
    m_col_alignments.resize(cols, Alignment::Left);
    m_looks.removeIf([cols](auto it) { return (it.key() & 0xffffffff) >= cols; });
    SetCursor(m_cursor);
}

void Sheet::SetFixed(int rows, int cols) {
    m_fixed_rows = rows;
    m_fixed_cols = cols;
    SetTopLeft(std::max(m_top_row, rows), std::max(m_left_col, cols));
}

void Sheet::SetRow(int row) {
    SetCursor({row, m_cursor.col});
}

void Sheet::SetCol(int col) {
    SetCursor({m_cursor.row, col});
}

void Sheet::SetCursor(Cell cell) {
    m_cursor = {std::clamp(cell.row, 0, std::max(0, Rows() - 1)), std::clamp(cell.col, 0, std::max(0, Cols() - 1))};
}

void Sheet::SetTopLeft(int top_row, int left_col) {
    m_top_row = top_row;
    m_left_col = left_col;
}

CellLook Sheet::Look(int row, int col) const {
    return m_looks.value(look_key(row, col));
}

Alignment Sheet::CellAlignment(int row, int col) const {
    return Look(row, col).alignment.value_or(m_col_alignments[col]);
}

CellLook& Sheet::look_of(int row, int col) {
    Q_ASSERT_X(Contains(row, col), "Sheet", "cell outside the sheet");
    return m_looks[look_key(row, col)];
}

void Sheet::SetCellBack(int row, int col, Rgb colour) {
    look_of(row, col).back = colour;
}

void Sheet::SetCellFore(int row, int col, Rgb colour) {
    look_of(row, col).fore = colour;
}

void Sheet::SetCellAlignment(int row, int col, Alignment alignment) {
    look_of(row, col).alignment = alignment;
}

void Sheet::SetCellDot(int row, int col, bool dot) {
    if (Look(row, col).dot != dot)
        look_of(row, col).dot = dot;
}

void Sheet::SetCellStandIn(int row, int col, const QString& words) {
    if (Look(row, col).stand_in != words)
        look_of(row, col).stand_in = words;
}

void Sheet::SetCellTip(int row, int col, const QString& tip) {
    look_of(row, col).tip = tip;
}

void Sheet::Clear() {
    m_cells.fill(QString());
    m_looks.clear();
    m_row_heights.fill(default_row_height);
    m_col_widths.fill(default_col_width);
    m_col_alignments.fill(Alignment::Left);
}

void Sheet::Sort(int col, SortOrder order) {
    QList<SortKey> keys;
    keys.reserve(Rows());
    for (int row = 0; row < Rows(); ++row)
        keys << key_of((*this)(row, col), order);
    QList<int> rows(std::max(0, Rows() - m_fixed_rows));
    std::iota(rows.begin(), rows.end(), m_fixed_rows);
    const auto less = [&keys](int a, int b) { return keys[a] < keys[b]; };
    if (!std::ranges::is_sorted(rows, less)) {
        std::ranges::stable_sort(rows, less);
        take_rows(rows);
    }
}

/// The rows below the fixed ones become these, in this order.
void Sheet::take_rows(const QList<int>& rows) {
    QList<QString> sorted(m_cells.size());
    const auto fixed = m_cells.begin() + qsizetype(m_fixed_rows) * Cols();
    auto place = std::swap_ranges(m_cells.begin(), fixed, sorted.begin());
    for (const int row : rows) {
        const auto first = m_cells.begin() + qsizetype(row) * Cols();
        place = std::swap_ranges(first, first + Cols(), place);
    }
    m_cells.swap(sorted);
}

int Sheet::LastRow() const {
    return last_with_size(m_row_heights);
}

int Sheet::LastCol() const {
    return last_with_size(m_col_widths);
}

int Sheet::VisibleRows(int view_height) const {
    int sum = 0;
    for (int row = 0; row < Rows(); ++row) {
        sum += m_row_heights[row];
        if (sum > view_height)
            return row - m_fixed_rows;
    }
    return Rows();
}

int Sheet::VisibleCols(int view_width) const {
    int sum = std::accumulate(m_col_widths.begin(), m_col_widths.begin() + m_fixed_cols, 0);
    for (int col = m_left_col; col < Cols(); ++col) {
        sum += m_col_widths[col];
        if (sum > view_width)
            return col - m_fixed_cols;
    }
    return Cols();
}

} // namespace base
