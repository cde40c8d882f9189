#pragma once

// Page: what stands on one printed page, as values. Layouts make pages and know no surface; painting takes pages and
// knows no report. Widths are millimetres, sizes of letters points.

#include "reports/pages/place.h"
#include "reports/pages/print_columns.h"

#include <QString>
#include <vector>

namespace reports {

struct TextMark {
    Place place; ///< upper left corner
    double size; ///< points
    QString text;
};

struct LineMark {
    Place from;
    Place to;
    int width; ///< units of 1/600 inch
};

struct Page {
    std::vector<TextMark> texts;
    std::vector<LineMark> lines;
};

using Pages = std::vector<Page>;

/// Puts a text on the page; one that shows nothing is left out.
void add_text(Page& page, const QString& text, double size, Place place);

/// Puts a text of the person's on the page, `inset` mm behind the start of its column, in letters small enough for the
/// column.
void add_fitted(Page& page, const QString& text, double inset, Place column, double width);

/// Puts a text into the middle of its column, in letters of this size or, where the column is too narrow for them, in
/// letters small enough.
void add_centred(Page& page, const QString& text, double size, Place column, double width);

/// Puts a cell on the page by the rule of its column, which begins at `start`. A figure that is longer than the column
/// keeps of a cell stands whole, in letters small enough.
void add_cell(Page& page, const 印刷項目& column, const QString& cell, Place start);

void add_rectangle(Page& page, const Box& box, int width);

} // namespace reports
