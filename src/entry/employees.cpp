#include "entry/employees.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"

namespace entry {

using namespace base;

namespace {

enum Column { number_column, name_column, key_column };

} // namespace

void 社員マスター全呼出(base::Sheet& hyou_syain, store::Database& database, common::EmployeeOrder order) {
    auto query = database.prepare("select 社員番号, 社員名, システム番号 from syain");
    int filled = 1;
    while (query.step()) {
        const store::Row employee = query.row();
        const QString number = Trim(employee.text(number_column));
        if (number.isEmpty())
            continue;
        if (filled == hyou_syain.Rows())
            hyou_syain.SetRows(2 * filled);
        hyou_syain(filled, number_column) = number;
        hyou_syain(filled, name_column) = Trim(employee.text(name_column));
        hyou_syain(filled, key_column) = digits(employee.number(key_column));
        ++filled;
    }
    hyou_syain.SetRows(filled);
    社員リストソート処理(hyou_syain, order);
}

void 社員リストソート処理(base::Sheet& hyou_syain, common::EmployeeOrder order) {
    if (order == common::EmployeeOrder::Registered)
        hyou_syain.Sort(key_column, SortOrder::NumericAscending);
    else
        hyou_syain.Sort(number_column, SortOrder::GenericAscending);
    hyou_syain.SetCursor({0, hyou_syain.Cols() - 1});
}

} // namespace entry
