#pragma once

// Sheet: a table of text cells that serves both as what a grid shows and as working memory. It knows no widget.
//
// Cells are addressed (row, column) from 0. Reading or writing outside the sheet is a programming fault (assert);
// a rule that could run past the edge asks Contains() first. A resize keeps the cells that remain and adds empty ones.
// Sizes are in twips (15 to a pixel at 96 dpi); a row or column of size 0 is hidden.
//
// The members have the names by which every screen's rules speak of a grid (`Rows`, `TopRow`, `ColWidth`, `Sort`), and
// all others are written like them, with Set before what is set.

#include <QHash>
#include <QList>
#include <QString>
#include <optional>

namespace base {

struct Rgb {
    int red = 0;
    int green = 0;
    int blue = 0;
    friend bool operator==(const Rgb&, const Rgb&) = default;
};

enum class Alignment { Left, Center, Right };

/// How a cell differs from its column: nothing set means nothing differs.
struct CellLook {
    std::optional<Rgb> back;
    std::optional<Rgb> fore;
    std::optional<Alignment> alignment;
    bool dot = false;   ///< a round mark at the cell's right edge: something of it waits
    QString tip{};      ///< what is said of the cell beside its text; empty for nothing
    QString stand_in{}; ///< shown quietly in place of an empty text
};

enum class SortOrder {
    NumericAscending, ///< `Sort` 3: by Val of the column
    GenericAscending, ///< `Sort` 1: numbers by their value, then the other texts
    TextAscending,    ///< `Sort` 1 where all is taken as text: "10" before "9"
};

struct Cell {
    int row = 0;
    int col = 0;
    friend bool operator==(const Cell&, const Cell&) = default;
};

class Sheet {
public:
    static constexpr int default_row_height = 270;
    static constexpr int default_col_width = 960;

    explicit Sheet(int rows = 0, int cols = 0);

    int Rows() const { return static_cast<int>(m_row_heights.size()); }
    int Cols() const { return static_cast<int>(m_col_widths.size()); }
    void SetRows(int rows);
    void SetCols(int cols);

    /// The heading rows and columns that don't scroll and take no cursor.
    int FixedRows() const { return m_fixed_rows; }
    int FixedCols() const { return m_fixed_cols; }
    void SetFixed(int rows, int cols);

    QString& operator()(int row, int col) { return m_cells[at(row, col)]; }
    const QString& operator()(int row, int col) const { return m_cells[at(row, col)]; }
    bool Contains(int row, int col) const { return row >= 0 && row < Rows() && col >= 0 && col < Cols(); }

    /// The cursor. It may be set to any cell of the sheet; a resize holds it inside.
    int Row() const { return m_cursor.row; }
    int Col() const { return m_cursor.col; }
    void SetRow(int row);
    void SetCol(int col);
    void SetCursor(Cell cell);

    /// The first scrolled row and column in view.
    int TopRow() const { return m_top_row; }
    int LeftCol() const { return m_left_col; }
    void SetTopLeft(int top_row, int left_col);

    int RowHeight(int row) const { return m_row_heights[row]; }
    void SetRowHeight(int row, int twips) { m_row_heights[row] = twips; }
    int ColWidth(int col) const { return m_col_widths[col]; }
    void SetColWidth(int col, int twips) { m_col_widths[col] = twips; }
    void SetColAlignment(int col, Alignment alignment) { m_col_alignments[col] = alignment; }

    CellLook Look(int row, int col) const;
    Alignment CellAlignment(int row, int col) const;
    void SetCellBack(int row, int col, Rgb colour);
    void SetCellFore(int row, int col, Rgb colour);
    void SetCellAlignment(int row, int col, Alignment alignment);
    void SetCellDot(int row, int col, bool dot);
    void SetCellStandIn(int row, int col, const QString& words);
    void SetCellTip(int row, int col, const QString& tip);

    /// Empties every cell and takes all looks, sizes and alignments back to their defaults; rows, columns and fixed
    /// counts stay.
    void Clear();

    /// Sorts the rows below the fixed ones by a column, equal rows in the order they stand in. Looks stay where they
    /// are.
    void Sort(int col, SortOrder order);

    /// The last row or column with a size above 0, row and column 0 apart; 0 if there is none.
    int LastRow() const; ///< `Fn_lastRows`
    int LastCol() const; ///< `Fn_lastCols`

    /// The last row or column that fits a view of the given size in twips; Rows or Cols where everything fits.
    int VisibleRows(int view_height) const; ///< `Fn_VisibleRows`
    int VisibleCols(int view_width) const;  ///< `Fn_VisibleCols`

private:
    qsizetype at(int row, int col) const;
    CellLook& look_of(int row, int col);
    void take_rows(const QList<int>& rows);

    QList<QString> m_cells;
    QList<int> m_row_heights;
    QList<int> m_col_widths;
    QList<Alignment> m_col_alignments;
    QHash<qint64, CellLook> m_looks;
    int m_fixed_rows = 0;
    int m_fixed_cols = 0;
    Cell m_cursor;
    int m_top_row = 0;
    int m_left_col = 0;
};

} // namespace base
