#include "reports/tallies/report_table.h"

#include "reports/tallies/attendance_detail.h"
#include "reports/tallies/category_list.h"
#include "reports/tallies/employee_list.h"
#include "reports/tallies/kind_list.h"
#include "reports/tallies/work_time_list.h"
#include "reports/tallies/work_type_list.h"

#include <algorithm>

namespace reports {

namespace {

/// A format that needs nothing of the session.
template <void (*format)(Report&)>
void plain(Report& report, const frame::Session&) {
    format(report);
}

constexpr Panels no_panels{};
constexpr Panels employees{.pic_tantou = true};
constexpr Panels month{.Pic_yyyymm = true, .pic_tantou = true, .print_zero = true, .print_flg = true};
constexpr Panels days{.pic_ymd_t1 = true, .pic_tantou = true};

using enum ReportControl;

constexpr ReportRow table[] = {
    // clang-format off
    {1, u"社員一覧表",       employees, DateDefault::ThisMonth, false, plain<書式設定_社員一覧>,       集計_社員一覧表,       tancd},
    {2, u"勤務種類一覧表",   no_panels, DateDefault::Today,     false, plain<書式設定_勤務種類一覧>,   集計_勤務種類一覧表,   karibotan},
    {3, u"勤務タイプ一覧表", no_panels, DateDefault::Today,     false, plain<書式設定_勤務タイプ一覧>, 集計_勤務タイプ一覧表, karibotan},
    {4, u"出勤明細一覧表",   month,     DateDefault::None,      true,  書式設定_出勤明細一覧,          集計_出勤明細表,       yyyymm},
    {5, u"勤務時間一覧表",   days,      DateDefault::ThisMonth, false, plain<書式設定_勤務時間一覧>,   集計_勤務時間一覧表,   ymd},
    {6, u"休暇出勤一覧表",   no_panels, DateDefault::None,      false, plain<書式設定_休暇出勤>,       集計_休暇出勤一覧表,   karibotan},
    // clang-format on
};

} // namespace

std::span<const ReportRow> report_table() {
    return table;
}

const ReportRow* report_row(qint64 number) {
    const auto at = std::ranges::find(table, number, &ReportRow::number);
    return at == std::end(table) ? nullptr : &*at;
}

} // namespace reports
