#include "base/columns.h"

namespace base {

void lay_out(Sheet& sheet, std::span<const Column> columns, int rows, int fixed_cols) {
    const Cell cursor{sheet.Row(), sheet.Col()};
    sheet = Sheet(rows, static_cast<int>(columns.size()));
    sheet.setFixed(1, fixed_cols);
    for (int col = 0; col < sheet.Cols(); ++col) {
        sheet(0, col) = columns[col].heading.toString();
        sheet.setColWidth(col, columns[col].width);
        sheet.setColAlignment(col, columns[col].alignment);
    }
    sheet.setCursor(cursor);
}

} // namespace base
