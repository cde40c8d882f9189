#include "reports/tallies/employee_list.h"

#include "base/columns.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "reports/tallies/selection.h"

#include <QHash>

namespace reports {

using namespace base;

namespace {

constexpr int number_col = 1;
constexpr int name_col = 2;
constexpr int type_col = 3;

constexpr Column columns[] = {
    {u"", 600, Alignment::Right},
    {u"社員番号", 1500},
    {u"社　員　名", 2000},
    {u"勤務タイプ", 4000},
};

/// System numbers of employees to the names of their work types.
using TypeNames = QHash<qint64, QString>;

/// Of several rows under one number the first counts.
TypeNames type_names(store::Database& rovdata) {
    TypeNames types;
    auto names = rovdata.prepare("select システム番号, 勤務タイプ名 from kintype order by rowid");
    while (names.step())
        if (!types.contains(names.row().number(0)))
            types.insert(names.row().number(0), Trim(names.row().text(1)));
    TypeNames found;
    auto assignments = rovdata.prepare("select システム社員番号, 勤務タイプ from syainkinmu order by rowid");
    while (assignments.step())
        if (!found.contains(assignments.row().number(0)))
            found.insert(assignments.row().number(0), types.value(assignments.row().number(1)));
    return found;
}

store::Statement employees_of(store::Database& rovdata, const EmployeeRange& range) {
    constexpr std::string_view fields = "select システム番号, 社員番号, 社員名 from syain";
    if (range.empty())
        return rovdata.prepare(std::string(fields) + " order by 社員番号");
    auto query = rovdata.prepare(std::string(fields) + " where システム番号 between ? and ? order by 社員番号");
    query.bind(range.first, range.last);
    return query;
}

void fill(Sheet& hyou, store::Statement employees) {
    hyou.SetRows(hyou.FixedRows());
    while (employees.step()) {
        const QString number = Trim(employees.row().text(1));
        if (number.isEmpty())
            continue;
        const int row = hyou.Rows();
        hyou.SetRows(row + 1);
        hyou(row, 0) = digits(employees.row().number(0));
        hyou(row, number_col) = number;
        hyou(row, name_col) = Trim(employees.row().text(2));
    }
}

void show_types(Sheet& hyou, const TypeNames& types) {
    for (int row = hyou.FixedRows(); row < hyou.Rows(); ++row) {
        const qint64 employee = Val(hyou(row, 0));
        if (employee != 0)
            hyou(row, type_col) = types.value(employee);
        hyou(row, 0) = digits(row);
    }
}

} // namespace

void 書式設定_社員一覧(Report& report) {
    lay_out(report.hyou, columns, /*rows=*/2);
    set_title(report, u"社員一覧表"_s);
}

Outcome 集計_社員一覧表(Report& report, Work& work) {
    書式設定_社員一覧(report);
    report.midasi[2] += chosen_names(report.conditions);
    store::Database rovdata = open_rovdata(work.session);
    const store::Transaction view(rovdata, store::Transaction::Lock::Read);
    fill(report.hyou, employees_of(rovdata, chosen_employees(report.conditions)));
    sort_employees(report.hyou, work.session, 0, number_col);
    show_types(report.hyou, type_names(rovdata));
    return Outcome::Done;
}

} // namespace reports
