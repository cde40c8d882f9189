#pragma once

// The places of a page's table, and the settings of the printer. Paper is A4; all lengths are millimetres.

#include "reports/pages/print_surface.h"
#include "store/setting_tables.h"

namespace reports {

enum class Layout {
    Lists = 1,      ///< reports 1, 2, 3 and 6, and the error list
    WorkTime = 2,   ///< report 5
    Attendance = 3, ///< report 4
};

inline constexpr double row_pitch = 6;

struct PageConstants {
    Orientation orientation;
    Box table;
    int first_row = 2;      ///< index of the first body row on a page
    int last_row;           ///< index of the last one
    double text_drop = 1.4; ///< of text below a row's top line
    int printer = 1;        ///< number of the printer on which the layout comes out

    /// The y of the text in the row with this index on the page, and in that of the column headings.
    ///   row_y(first_row) // 33.4      heading_y() // 26.4
    constexpr double row_y(int row) const { return row * row_pitch - 5 + table.top + text_drop; }
    constexpr double heading_y() const { return table.top + text_drop; }
    constexpr int rows() const { return last_row - first_row + 1; }
};

/// The constants of the layout; they live as long as the program.
const PageConstants& 印刷設定取得(Layout layout);

/// What this PC has set for a printer.
struct PrinterSetting {
    QString name; ///< device name; empty if none was ever chosen
    Place offset; ///< moves the print: positive ones left and up
};

/// The settings hold three printers; every layout asks for the first. An offset that isn't set is 0.
PrinterSetting printer_setting(Layout layout, store::SettingTables& tables);

} // namespace reports
