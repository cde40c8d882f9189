#pragma once

// The frame of a page: the headings above the table, where its columns lie, their headings, and its lines.

#include "reports/pages/font_fit.h"
#include "reports/pages/page.h"
#include "reports/pages/page_constants.h"
#include "reports/tallies/report.h"

#include <QDate>
#include <functional>
#include <span>

namespace reports {

/// Widths of lines, units of 1/600 inch.
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

/// The first column begins at `left` mm. A sheet without columns gives none.
PlacedColumns place_columns(const Report& report, double left, std::span<const FurtherSheet> sheets = {});

/// The room that a column leaves for the vertical line on its right: the line stands left of the table's right edge,
/// or a whole further column would.
enum class LineRoom { Line, FurtherColumn };

/// Headings and vertical lines of these columns, which are indices into the placed ones. One that isn't printed is
/// passed over.
void add_columns(Page& page, const PageConstants& constants, const PlacedColumns& columns, std::span<const int> cols,
    LineRoom room = LineRoom::Line);

/// From the table's top to its bottom.
void add_vertical_line(Page& page, const Box& table, double x);

/// The lines across a table.
struct RowLines {
    int under_heading = outer_line;
    int between_rows = inner_line;
};

/// The outer box, and the lines under the heading row and between the rows.
void add_box(Page& page, const Box& table, RowLines lines = {});

/// A line above the table.
struct HeadLine {
    Place place;
    double size = heading_size; ///< points
};

/// Those that every report has at the same place.
inline constexpr HeadLine title_line{.place = {.x = 20, .y = 8}, .size = 16};
inline constexpr HeadLine print_date_line{.place = {.x = 20, .y = 15}};
inline constexpr HeadLine spare_line{.place = {.x = 20, .y = 18}};

void add_head_line(Page& page, const HeadLine& line, const QString& text);

/// "2004年10月05日印刷"
void add_print_date(Page& page, QDate today);

/// The two spare lines of the headings, which stand side by side.
void add_spare_lines(Page& page, const Report& report);

} // namespace reports
