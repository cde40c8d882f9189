#include "reports/company.h"
#include "reports/tallies/category_list.h"
#include "reports/tallies/employee_list.h"
#include "reports/tallies/kind_list.h"
#include "reports/tallies/work_type_list.h"

namespace reports {

using Lists = Company;

TEST_F(Lists, EmployeesStandInTheOrderOfThisPcWithTheirWorkTypes) {
    集計_社員一覧表(report, work);
    EXPECT_EQ(rows(report.hyou), (QStringList{u"1|9|山田|標準"_s, u"2|10|田中|"_s, u"3|100|木村|"_s}));
    EXPECT_EQ(report.midasi[0], u"社員一覧表"_s);
    report.conditions.tancd = {u"10"_s, u""_s};
    report.conditions.ntancd = {u"田中"_s, u""_s};
    choose_employees(u"2"_s, u""_s);
    集計_社員一覧表(report, work);
    EXPECT_EQ(rows(report.hyou), (QStringList{u"1|9|山田|標準"_s, u"2|10|田中|"_s})) << "from 0 to 2";
    EXPECT_EQ(report.midasi[2], u"【田中～】"_s);
    sort_by_number();
    choose_employees(u"4"_s, u"1"_s);
    集計_社員一覧表(report, work);
    EXPECT_EQ(rows(report.hyou), (QStringList{u"1|10|田中|"_s, u"2|100|木村|"_s, u"3|9|山田|標準"_s})) << "as text";
}

TEST_F(Lists, BandsStandByTypeWeekdayAndNumberAndThoseOfAGoneCategoryAreLeftOut) {
    集計_勤務タイプ一覧表(report, work);
    EXPECT_EQ(rows(report.hyou),
        (QStringList{u"1|標準|月|普通|0:00|12:00|通常||||||"_s, u"2|標準|月|残業|17:30|25:30|||||||"_s,
            u"3|標準|土|普通|8:30|17:30|範囲内対象|6:00|0:45||||"_s}));
}

TEST_F(Lists, CategoriesAndKindsStandInTheirOrder) {
    集計_勤務種類一覧表(report, work);
    EXPECT_EQ(rows(report.hyou), (QStringList{u"1|普通"_s, u"2|残業"_s}));
    集計_休暇出勤一覧表(report, work);
    EXPECT_EQ(rows(report.hyou),
        (QStringList{u"出勤|出勤|標準"_s, u"休日出勤|出勤|"_s, u"公休|休暇|標準"_s, u"有休|休暇|"_s}));
}

TEST_F(Lists, AnEmptyTableLeavesTheHeadingRowAlone) {
    exec("delete from syain; delete from kinsyu; delete from kyutype; delete from kintype");
    for (const auto tally : {集計_社員一覧表, 集計_勤務種類一覧表, 集計_勤務タイプ一覧表, 集計_休暇出勤一覧表}) {
        tally(report, work);
        EXPECT_EQ(report.hyou.Rows(), 1) << report.midasi[0].toStdString();
    }
}

} // namespace reports
