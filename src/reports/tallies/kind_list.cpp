#include "reports/tallies/kind_list.h"

#include "base/columns.h"
#include "base/literals.h"
#include "base/text.h"
#include "reports/tallies/selection.h"

namespace reports {

using namespace base;

namespace {

constexpr Column columns[] = {
    {u"名　称", 2500},
    {u"休暇・出勤", 1500, Alignment::Center},
    {u"標準", 1500, Alignment::Center},
};

} // namespace

void 書式設定_休暇出勤(Report& report) {
    lay_out(report.hyou, columns, /*rows=*/2);
    set_title(report, u"休暇出勤一覧表"_s);
}

Outcome 集計_休暇出勤一覧表(Report& report, Work& work) {
    書式設定_休暇出勤(report);
    Sheet& hyou = report.hyou;
    hyou.SetRows(hyou.FixedRows());
    store::Database rovdata = open_rovdata(work.session);
    auto kinds =
        rovdata.prepare("select 休暇名, 休出, 通常 from kyutype order by 休出 desc,通常 desc,システム番号 asc");
    for (int row = hyou.FixedRows(); kinds.step(); ++row) {
        hyou.SetRows(row + 1);
        hyou(row, 0) = Trim(kinds.row().text(0));
        hyou(row, 1) = kinds.row().number(1) == 1 ? u"出勤"_s : u"休暇"_s;
        hyou(row, 2) = kinds.row().number(2) != 0 ? u"標準"_s : QString();
    }
    return Outcome::Done;
}

} // namespace reports
