#include "reports/tallies/category_list.h"

#include "base/columns.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "reports/tallies/selection.h"

namespace reports {

using namespace base;

namespace {

constexpr Column columns[] = {
    {u"", 600, Alignment::Right},
    {u"勤務種類名", 3000},
};

} // namespace

void 書式設定_勤務種類一覧(Report& report) {
    lay_out(report.hyou, columns, /*rows=*/2);
    set_title(report, u"勤務種類一覧表"_s);
}

Outcome 集計_勤務種類一覧表(Report& report, Work& work) {
    書式設定_勤務種類一覧(report);
    Sheet& hyou = report.hyou;
    hyou.SetRows(hyou.FixedRows());
    store::Database rovdata = open_rovdata(work.session);
    auto categories = rovdata.prepare("select 種類名 from kinsyu order by システム番号 asc");
    for (int row = hyou.FixedRows(); categories.step(); ++row) {
        hyou.SetRows(row + 1);
        hyou(row, 0) = digits(row);
        hyou(row, 1) = Trim(categories.row().text(0));
    }
    return Outcome::Done;
}

} // namespace reports
