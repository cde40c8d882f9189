#pragma once

// The columns of a grid as a constant table: heading, width in twips (0 is hidden), alignment.

#include "base/sheet.h"

#include <span>

namespace base {

struct Column {
    QStringView heading;
    int width;
    Alignment alignment = Alignment::Left;
};

/// Lays an empty sheet out: these columns, the headings in row 0, the given rows and fixed counts; the cursor is kept
/// where it still fits.
void lay_out(Sheet& sheet, std::span<const Column> columns, int rows, int fixed_cols = 0);

} // namespace base
