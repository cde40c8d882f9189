#pragma once

// Lists filled from a query: a grid with a heading, or a combo box of master items. And the two lists that more than
// one screen shows: employees and work types.

#include "base/sheet.h"
#include "common/employee_order.h"
#include "masters/combo_box.h"
#include "store/database.h"

#include <span>

namespace masters {

/// What a column of the query becomes in the grid.
struct ListCell {
    enum Form { Text, Number } form; ///< trimmed text, or the numeric value as text
    int col;
};

/// One grid row below the heading for each row of the query, whose column i goes into cells[i]; the other cells come
/// out empty. Without rows the heading stays. The cursor is kept where it still fits.
void fill_list(base::Sheet& list, store::Statement query, std::span<const ListCell> cells);

/// One master item for each row of the query, which gives a name and a number.
void fill_combo(ComboBox& combo, store::Statement query);

/// The work types as name and number in order of the number. The name takes part in the grouping: a type whose rows
/// disagree on it comes once for each form of the name.
store::Statement work_types(store::Database& rovdata);

/// `社員マスター全呼出`: the employees in the order, those without a `社員番号` left out: number in column 0, name in
/// 1, key in `key_col`.
void list_employees(base::Sheet& list, store::Database& rovdata, int key_col, common::EmployeeOrder order);

} // namespace masters
