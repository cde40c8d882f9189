#include "masters/mst_kintype.h"

#include "base/columns.h"
#include "base/numbers.h"
#include "masters/lists.h"

#include <QScopeGuard>

namespace masters {

using namespace base;

namespace {

constexpr Column columns[] = {{u"社員番号", 2000}, {u"社員名", 3000}, {u"勤務タイプ", 3000}, {u"", 0}, {u"", 0}};

/// The first row that holds each number in a column.
QHash<qint64, int> rows_by_number(const Sheet& sheet, int col) {
    QHash<qint64, int> rows;
    rows.reserve(sheet.Rows());
    for (int row = sheet.Rows() - 1; row >= sheet.FixedRows(); --row)
        rows[Val(sheet(row, col))] = row;
    return rows;
}

/// The first item of each number.
QHash<qint64, Choice> choices_by_number(const ComboBox& combo) {
    QHash<qint64, Choice> choices;
    for (int item = static_cast<int>(combo.items.size()) - 1; item >= 0; --item) {
        const Choice choice = combo.choice(item);
        choices[Val(choice.number)] = choice;
    }
    return choices;
}

} // namespace

void mst_kintype::書式設定() {
    lay_out(hyou, columns, 2);
}

void mst_kintype::勤務タイプリスト表示() {
    auto rovdata = open_rovdata();
    fill_combo(atai_com, work_types(rovdata));
}

void mst_kintype::社員マスター全呼出() {
    auto rovdata = open_rovdata();
    list_employees(hyou, rovdata, employee_col, common::EmployeeOrder::Numbered);
    for (int row = hyou.FixedRows(); row < hyou.Rows(); ++row)
        hyou.SetCellStandIn(row, type_name_col, unset_choice.toString());
}

void mst_kintype::社員勤務種類マスター全呼出() {
    const auto rows = rows_by_number(hyou, employee_col);
    const auto types = choices_by_number(atai_com);
    auto rovdata = open_rovdata();
    auto query =
        rovdata.prepare("select システム社員番号, 勤務タイプ from syainkinmu order by システム社員番号 asc, rowid");
    while (query.step()) {
        const auto row = rows.constFind(query.row().number(0));
        const auto type = types.constFind(query.row().number(1));
        if (row == rows.constEnd() || type == types.constEnd())
            continue;
        hyou(*row, type_name_col) = type->name;
        hyou(*row, type_col) = type->number;
    }
}

void mst_kintype::入力フォーム() {
    if (hyou.Col() != type_name_col || hyou.Row() < hyou.FixedRows())
        return;
    atai_com.place(cursor());
    atai_com.index = -1;
    atai_com.select(Val(hyou(hyou.Row(), type_col)));
    focus = Focus{Control::AtaiCom};
}

void mst_kintype::保存処理(EmployeeKey employee, WorkTypeKey type) {
    if (employee.none() || type.none())
        return;
    auto rovdata = open_rovdata();
    store::Transaction transaction(rovdata);
    rovdata.prepare("delete from syainkinmu where システム社員番号=?").bind(employee).run();
    rovdata.prepare("insert into syainkinmu (システム社員番号, 勤務タイプ) values (?, ?)").bind(employee, type).run();
    transaction.commit();
}

void mst_kintype::Form_Load() {
    書式設定();
    勤務タイプリスト表示();
    社員マスター全呼出();
    社員勤務種類マスター全呼出();
    hyou.SetCursor({hyou.FixedRows(), type_name_col});
}

void mst_kintype::follow(int view_width, int view_height) {
    follow_scroll(hyou, atai_com, view_width, view_height);
}

void mst_kintype::atai_com_Click(int item) {
    const auto choice = atai_com.choose(item);
    if (!choice)
        return;
    const int row = atai_com.cell.row;
    // A choice that can't be saved isn't shown as made.
    auto unsaved = qScopeGuard([this, row] {
        atai_com.index = -1;
        atai_com.select(Val(hyou(row, type_col)));
    });
    保存処理(EmployeeKey(Val(hyou(row, employee_col))), WorkTypeKey(Val(choice->number)));
    unsaved.dismiss();
    hyou(row, type_name_col) = choice->name;
    hyou(row, type_col) = choice->number;
}

} // namespace masters
