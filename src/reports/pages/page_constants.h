#pragma once

// The places of a page's table, and the settings of the printer. Paper is A4; all lengths are millimetres from the
// paper's edge.

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
    double top; ///< of the table, as are the other three edges
    double bottom;
    double left;
    double right;
    int first_row;    ///< index of the first body row on a page
    int last_row;     ///< index of the last one
    double text_drop; ///< of text below a row's top line
    int printer;      ///< number of the printer on which the layout comes out

    /// Where the text of the row with this index on the page stands, and that of the column headings.
    constexpr double row_y(int row) const { return row * row_pitch - 5 + top + text_drop; }
    constexpr double heading_y() const { return top + text_drop; }
    constexpr int rows() const { return last_row - first_row + 1; }
};

const PageConstants& 印刷設定取得(Layout layout);

/// What this PC has set for a printer. The numbers move the print: positive ones up and left.
struct PrinterSetting {
    QString name; ///< device name; empty if none was ever chosen
    double y = 0;
    double x = 0;
};

/// The settings hold three printers; every layout asks for the first.
PrinterSetting 印刷設定取得(Layout layout, store::SettingTables& tables);

} // namespace reports
