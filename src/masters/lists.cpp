#include "masters/lists.h"

#include "base/numbers.h"
#include "base/text.h"

namespace masters {

using namespace base;

namespace {

QString cell_text(const store::Row& row, int column, ListCell::Form form) {
    return form == ListCell::Text ? Trim(row.text(column)) : digits(row.number(column));
}

} // namespace

void fill_list(Sheet& list, store::Statement query, std::span<const ListCell> cells) {
    const Cell cursor{list.Row(), list.Col()};
    list.SetRows(list.FixedRows());
    int filled = list.FixedRows();
    for (; query.step(); ++filled) {
        if (filled == list.Rows())
            list.SetRows(2 * filled);
        for (int i = 0; i < std::ssize(cells); ++i)
            list(filled, cells[i].col) = cell_text(query.row(), i, cells[i].form);
    }
    list.SetRows(filled);
    list.SetCursor(cursor);
}

void fill_combo(ComboBox& combo, store::Statement query) {
    combo.items.clear();
    combo.index = -1;
    while (query.step())
        combo.items << combo_item(master_item, Trim(query.row().text(0)), {query.row().number(1)});
}

store::Statement work_types(store::Database& rovdata) {
    return rovdata.prepare("select 勤務タイプ名, システム番号 from kintype"
                           " group by システム番号,勤務タイプ名 order by システム番号 asc, 勤務タイプ名");
}

void list_employees(Sheet& list, store::Database& rovdata, int key_col, common::EmployeeOrder order) {
    // The "+" keeps the index out: one walk through the table and a sort is faster than a lookup for each employee.
    constexpr std::string_view registered =
        "select 社員番号, 社員名, システム番号 from syain where trim(cast(社員番号 as text)) <> ''"
        " order by +システム番号 asc, 社員番号 asc, rowid";
    constexpr std::string_view numbered =
        "select 社員番号, 社員名, システム番号 from syain where trim(cast(社員番号 as text)) <> ''"
        " order by 社員番号 asc, rowid";
    const ListCell cells[] = {{ListCell::Text, 0}, {ListCell::Text, 1}, {ListCell::Number, key_col}};
    fill_list(list, rovdata.prepare(order == common::EmployeeOrder::Registered ? registered : numbered), cells);
}

} // namespace masters
