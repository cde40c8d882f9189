#include "base/columns.h"

namespace base {

void lay_out(Sheet& sheet, std::span<const Column> columns, int rows, int fixed_cols) {
    const Cell cursor{sheet.Row(), sheet.Col()};
    sheet = Sheet(rows, static_cast<int>(columns.size()));
    sheet.SetFixed(1, fixed_cols);
    for (int col = 0; col < sheet.Cols(); ++col) {
        sheet(0, col) = columns[col].heading.toString();
        sheet.SetColWidth(col, columns[col].width);
        sheet.SetColAlignment(col, columns[col].alignment);
    }
    sheet.SetCursor(cursor);
}

} // namespace base
