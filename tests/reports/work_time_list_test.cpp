#include "base/month_look.h"
#include "reports/company.h"
#include "reports/tallies/work_time_list.h"

namespace reports {

struct WorkTimeList : Company {
    WorkTimeList() {
        report.conditions.ymd = {u"2004/10/1"_s, u"2004/11/30"_s};
        exec(R"(
            insert into rovmei values (4, 20041101, 830, 1730, 100, 800, '遅'), (4, 20041102, 0, 0, 0, 1830, ''),
                (1, 20041101, 0, 800, 45, 9900, '早 '), (1, 20041102, 0, 0, 45, 6130, ''),
                (1, 20041032, 0, 0, 500, 500, ''), (1, 20040930, 900, 1700, 100, 700, ''),
                (3, 20041101, 900, 1700, 0, 0, '');
            insert into kinjisyu values (4, 20041101, 12, 115), (4, 20041102, 12, 45), (4, 20041101, 99, 300),
                (1, 20041101, 11, 0), (1, 20041032, 12, 900), (2, 20041101, 11, 800);
            insert into kyumei values (4, 20041102, 2, '公休', '0'), (4, 20041101, 1, '有休 ', '0'),
                (2, 20041101, 1, '有休', '0');
        )");
    }
};

TEST_F(WorkTimeList, SumsARangeAnEmployeeWithTheTotalsOnTop) {
    EXPECT_EQ(集計_勤務時間一覧表(report, work), Outcome::Done);
    EXPECT_EQ(rows(report.hyou, 0),
        (QStringList{u"||社員番号|社員名|出社時間|退社時間|休憩時間|勤務時間|備考|休暇|普通|残業"_s,
            u"||||||||||11|12"_s, u"|||合　　計|||2:30|187:00||||2:00"_s, u"1|1|9|山田|||1:30|160:30||||"_s,
            u"2|3||||||||||"_s, u"3|4|100|木村|||1:00|26:30||公休||2:00"_s}))
        << "田中 has leave but no attendance; the stored month's total doesn't count; employee 3 is gone";
    EXPECT_EQ(report.hyou.Look(times::total_row, 11).back, total_back);
    EXPECT_EQ(report.midasi[1] + report.midasi[2] + report.chulab, u"【2004/10/1～2004/11/30】全部全部"_s);
    sort_by_number();
    集計_勤務時間一覧表(report, work);
    EXPECT_EQ(rows(report.hyou, 1),
        (QStringList{u"||||||||||11|12"_s, u"|||合　　計|||2:30|187:00||||2:00"_s, u"2|3||||||||||"_s,
            u"3|4|100|木村|||1:00|26:30||公休||2:00"_s, u"1|1|9|山田|||1:30|160:30||||"_s}))
        << "whole rows move";
}

TEST_F(WorkTimeList, ASingleDayShowsItsClockTimes) {
    report.conditions.ymd = {u"2004/11/1"_s, u"2004/11/1"_s};
    集計_勤務時間一覧表(report, work);
    EXPECT_EQ(row(report.hyou, 3), u"1|1|9|山田|0:00|8:00|0:45|99:00|早|||"_s);
    EXPECT_EQ(row(report.hyou, 5), u"3|4|100|木村|8:30|17:30|1:00|8:00|遅|有休||1:15"_s);
    report.conditions.ymd = {u"2004/11/2"_s, u"2004/11/2"_s};
    集計_勤務時間一覧表(report, work);
    EXPECT_EQ(row(report.hyou, 3), u"1|1|9|山田|||0:45|61:30|||"_s) << "no clock times";
    exec("update rovmei set 出社時間=900, 退社時間=900 where 出社日=20041102");
    集計_勤務時間一覧表(report, work);
    EXPECT_EQ(row(report.hyou, 3), u"1|1|9|山田|9:00|9:00|0:45|61:30|||"_s) << "a stay without length";
}

TEST_F(WorkTimeList, RangesGivenTheWrongWayRoundAreTurned) {
    choose_employees(u"4"_s, u"2"_s);
    report.conditions.tancd = {u"100"_s, u"10"_s};
    report.conditions.ntancd = {u"木村"_s, u"田中"_s};
    report.conditions.ymd = {u"2004/11/2"_s, u"2004/11/1"_s};
    集計_勤務時間一覧表(report, work);
    EXPECT_EQ(rows(report.hyou, 4), (QStringList{u"2|4|100|木村|||1:00|26:30||公休|2:00"_s}));
    EXPECT_EQ(report.midasi[1] + report.midasi[2] + report.chulab, u"【2004/11/1～2004/11/2】【木村～田中】"_s);
}

TEST_F(WorkTimeList, ADateBoxThatIsEmptyLeavesItsEndOpen) {
    exec("insert into rovmei values (4, 8805, 0, 0, 0, 5900, '')"); // of a January that no period finds
    const std::tuple<QString, QString, QString> cases[] = {
        {u"2004/11/2"_s, u""_s, u"80:00"_s}, {u""_s, u"2004/11/1"_s, u"114:00"_s}, {u""_s, u""_s, u"194:00"_s}};
    for (const auto& [first, last, total] : cases) {
        report.conditions.ymd = {first, last};
        集計_勤務時間一覧表(report, work);
        EXPECT_EQ(report.midasi[1] + report.hyou(times::total_row, 7), u"【%1～%2】"_s.arg(first, last) + total);
    }
}

TEST_F(WorkTimeList, WithoutAttendanceOrWhenCancelledTheEmptyFormStands) {
    const QStringList empty{u"|||合　　計||||||"_s, u"|||||||||"_s};
    report.conditions.ymd = {u"2003/1/1"_s, u"2003/1/1"_s};
    集計_勤務時間一覧表(report, work);
    EXPECT_EQ(rows(report.hyou, 2), empty);
    report.conditions.ymd = {u"2004/11/1"_s, u"2004/11/1"_s};
    exec("insert into rovmei with recursive n(i) as (select 100 union all select i + 1 from n where i < 199)"
         " select i, 20041101, 0, 0, 0, 0, '' from n; insert into syain (システム番号) values (500)");
    work.progress = [](qint64, qint64) { return false; };
    EXPECT_EQ(集計_勤務時間一覧表(report, work), Outcome::Cancelled);
    EXPECT_EQ(rows(report.hyou, 2), empty);
    EXPECT_EQ(report.midasi[1] + report.midasi[2] + report.chulab, u""_s) << "no heading tells of a range";
}

} // namespace reports
