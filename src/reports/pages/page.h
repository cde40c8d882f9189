#pragma once

// Page: what stands on one printed page, as values. Layouts make pages and know no surface; painting takes pages and
// knows no report. Places are millimetres from the paper's edge.

#include "reports/pages/print_columns.h"

#include <QString>
#include <vector>

namespace reports {

struct TextMark {
    double y;
    double x;
    double size; ///< points
    QString text;
};

struct LineMark {
    double x1;
    double y1;
    double x2;
    double y2;
    int width; ///< units of 1/600 inch
};

struct Page {
    std::vector<TextMark> texts;
    std::vector<LineMark> lines;
};

using Pages = std::vector<Page>;

/// Puts a text on the page; one that shows nothing is left out.
void add_text(Page& page, const QString& text, double size, double y, double x);

/// Puts a text of the person's on the page, in letters small enough for the column.
void add_fitted(Page& page, const QString& text, double y, double left, double width, double inset);

/// Puts a text into the middle of its column, in letters of this size or, where the column is too narrow for them, in
/// letters small enough.
void add_centred(Page& page, const QString& text, double size, double y, double left, double width);

/// Puts a cell on the page by the rule of its column, which begins at `left`. A figure that is longer than the column
/// keeps of a cell stands whole, in letters small enough.
void add_cell(Page& page, const 印刷項目& column, const QString& cell, double y, double left);

void add_rectangle(Page& page, double left, double top, double right, double bottom, int width);

} // namespace reports
