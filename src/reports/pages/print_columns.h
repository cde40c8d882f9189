#pragma once

// The printed columns of the six reports and of the error list: one constant table each, whose `項目幅` is the width on
// paper.

#include <QString>
#include <optional>

namespace reports {

struct Report;

inline constexpr double category_width = 14; ///< mm; of the column of a work category

enum class CellKind : char16_t {
    None = u'0',
    Text = u'あ',
    Numeric = u'9',
    Fixed = u'A', ///< as it stands, ranged right
};

/// One printed column. A record as it is made stands for a column that isn't printed.
struct 印刷項目 {
    QString 項目名; ///< heading above the column
    CellKind 項目種別 = CellKind::None;
    int 項目桁数 = 0;                     ///< characters kept of a text; 0: the column isn't printed
    QString 項目書式;                     ///< "####": a whole number, 0 as blank; empty or "@": the cell as it stands
    double 項目幅 = 0;                    ///< mm; 0: the column takes no room
    std::optional<double> 項目位置 = 0.0; ///< left inset of the cell's text in mm; nothing: centred in the column
    int 縦線区切 = 0;                     ///< 1: the last column has a line on its right
};

/// The column of a report, counted as on its sheet from 0. Headings that the company named come from the sheet's row 0.
/// A column or report that the tables don't know gives an empty record.
印刷項目 項目定義取得(int 列番号, const Report& report);

/// The column of the error list.
印刷項目 項目定義取得_エラー(int 列番号);

} // namespace reports
