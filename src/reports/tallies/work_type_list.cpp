#include "reports/tallies/work_type_list.h"

#include "base/columns.h"
#include "base/literals.h"
#include "base/month_look.h"
#include "base/numbers.h"
#include "base/text.h"
#include "common/time_field.h"
#include "reports/tallies/selection.h"

namespace reports {

using namespace base;

namespace {

constexpr int start_col = 4;
constexpr int mode_col = 6;
constexpr int first_break_col = 7;

constexpr Column columns[] = {
    {u"", 400, Alignment::Right},
    {u"勤務タイプ名", 1900},
    {u"曜", 400, Alignment::Center},
    {u"勤務種類名", 1300},
    {u"始時間", 800, Alignment::Center},
    {u"終時間", 800, Alignment::Center},
    {u"時間計算", 900, Alignment::Center},
    {u"対象休1", 800, Alignment::Center},
    {u"加算休1", 800, Alignment::Center},
    {u"対象休2", 800, Alignment::Center},
    {u"加算休2", 800, Alignment::Center},
    {u"対象休3", 800, Alignment::Center},
    {u"加算休3", 800, Alignment::Center},
};

/// The fields stand in the order of the columns, from column 1 on.
constexpr std::string_view bands =
    "select 0, 勤務タイプ名, 曜日, 種類名, 開始時間, 終了時間, 時間計算, 休憩勤務時間1, 休憩時間1, 休憩勤務時間2,"
    " 休憩時間2, 休憩勤務時間3, 休憩時間3 from kintype join kinsyu on 時間種類 = kinsyu.システム番号"
    " order by kintype.システム番号, 曜日, 連番";

QString mode_text(qint64 mode) {
    return mode == 0 ? u"通常"_s : mode == 1 ? u"範囲内対象"_s : QString();
}

void show_band(Sheet& hyou, int row, const store::Row& band) {
    hyou(row, 0) = digits(row);
    hyou(row, 1) = Trim(band.text(1));
    hyou(row, 2) = weekday_text(band.number(2));
    hyou(row, 3) = Trim(band.text(3));
    for (int col = start_col; col < mode_col; ++col)
        hyou(row, col) = common::time_field(band, col);
    hyou(row, mode_col) = mode_text(band.number(mode_col));
    for (int col = first_break_col; col < hyou.Cols(); ++col)
        hyou(row, col) = common::time_field_without_zero(band, col);
}

} // namespace

void 書式設定_勤務タイプ一覧(Report& report) {
    lay_out(report.hyou, columns, /*rows=*/2);
    set_title(report, u"勤務タイプ一覧表"_s);
}

Outcome 集計_勤務タイプ一覧表(Report& report, Work& work) {
    書式設定_勤務タイプ一覧(report);
    Sheet& hyou = report.hyou;
    hyou.SetRows(hyou.FixedRows());
    store::Database rovdata = open_rovdata(work.session);
    auto query = rovdata.prepare(bands);
    for (int row = hyou.FixedRows(); query.step(); ++row) {
        hyou.SetRows(row + 1);
        show_band(hyou, row, query.row());
    }
    return Outcome::Done;
}

} // namespace reports
