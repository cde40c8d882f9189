#pragma once

// The table of a page: where its columns lie, their headings, and its lines.

#include "reports/pages/page.h"
#include "reports/pages/page_constants.h"
#include "reports/tallies/report.h"

#include <QDate>
#include <functional>
#include <span>

namespace reports {

inline constexpr int thin_line = 2;
inline constexpr int inner_line = 4;
inline constexpr int outer_line = 8;

struct PlacedColumn {
    印刷項目 item;
    double left = 0;
    double right = 0;

    bool printed() const { return item.項目桁数 != 0 && left != right; }
};

/// The columns of a sheet from the table's left edge on, each beginning where the one before it ends.
struct PlacedColumns {
    std::vector<PlacedColumn> columns;
    int last = -1; ///< the last with a width
};

/// From column `column` on, a further sheet of paper begins, behind the columns up to `behind` that it repeats.
struct FurtherSheet {
    int column;
    int behind;
};

PlacedColumns place_columns(
    const base::Sheet& hyou, int 帳票番号, double left, std::span<const FurtherSheet> sheets = {});

/// The room that a column leaves for the vertical line on its right: the line stands left of the table's right edge,
/// or a whole further column would.
enum class LineRoom { Line, FurtherColumn };

/// Headings and vertical lines of these columns.
void add_columns(Page& page, const PageConstants& table, const PlacedColumns& columns, std::span<const int> cols,
    LineRoom room = LineRoom::Line);

void add_vertical_line(Page& page, const PageConstants& table, double x);

/// The outer box, and the lines under the heading row and between the rows.
void add_box(Page& page, const PageConstants& table, int under_heading = outer_line, int between_rows = inner_line);

/// "2004年10月05日印刷"
QString print_date(QDate today);

/// The two spare lines of the headings, which stand side by side.
QString spare_lines(const Report& report);

} // namespace reports
