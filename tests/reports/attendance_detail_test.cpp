#include "base/company_month.h"
#include "base/month_look.h"
#include "reports/company.h"
#include "reports/tallies/attendance_detail.h"

namespace reports {

struct AttendanceDetail : Company {
    QStringList printed;

    AttendanceDetail() {
        report.conditions.yyyymm = {u"2004"_s, u"10"_s};
        work.print_employee = [this] { printed << report.midasi[1]; };
        exec(R"(
            insert into rovmei values (1, 20041001, 0, 800, 0, 45, ' 直行 '), (1, 20041002, 0, 0, 100, 0, ''),
                (1, 20041032, 0, 800, 100, 16030, ''), (1, 20041101, 900, 1700, 0, 0, '来月'),
                (1, 20041003, null, null, null, null, null);
            insert into kinjisyu values (1, 20041001, 12, 45), (1, 20041002, 11, 0), (1, 20041032, 12, 45),
                (1, 20041001, 99, 100);
            insert into kyumei values (1, 20041005, 1, '有休 ', '0'), (2, 20041005, 2, '公休', '0');
            insert into kinnisu values (1, 200410, -1, 0, 20), (1, 200410, 1, 1, 3), (1, 200410, 4, 2, 0),
                (1, 200410, 12, 0, 1), (1, 200411, -1, 0, 9);
        )");
    }

    QString cell(int r, int col) const { return report.hyou(r, col); }
};

TEST_F(AttendanceDetail, AMonthShowsWhatIsStoredAndNoZeros) {
    choose_employees(u"1"_s, u"4"_s);
    EXPECT_EQ(集計_出勤明細表(report, work), Outcome::Done);
    EXPECT_EQ(row(report.hyou, 0), u"日|曜|出勤時間|退社時間|休憩時間|勤務時間|備考|休暇|普通|残業"_s);
    EXPECT_EQ(row(report.hyou, 1), u"1|金|0:00|8:00||0:45|直行|||0:45"_s) << "one clock time keeps the other's zero";
    EXPECT_EQ(row(report.hyou, 2), u"2|土|||1:00|||||"_s);
    EXPECT_EQ(row(report.hyou, 3), u"3|日||||||||"_s);
    EXPECT_EQ(cell(5, 7), u"有休"_s);
    EXPECT_EQ(row(report.hyou, total_row), u"合計|||8:00|1:00|160:30||||0:45"_s);
    EXPECT_EQ(row(report.hyou, detail::category_row), u"||||||||11|12"_s);
    EXPECT_EQ(report.hyou.Look(total_row, 9).back, total_back);
    EXPECT_EQ(report.midasi[0] + report.midasi[1] + report.chulab, u"出勤明細一覧表  2004年 10月9:山田【9】山田"_s);
    EXPECT_TRUE(printed.isEmpty());
}

TEST_F(AttendanceDetail, TheStripCountsKindsAndCategories) {
    choose_employees(u"1"_s, u"1"_s);
    集計_出勤明細表(report, work);
    EXPECT_EQ(rows(report.hyou_day, 0), (QStringList{u"出勤|休暇|出勤|休日出勤|公休|有休|普通|残業"_s,
                                            u"-1|-2|s3|s4|k2|k1|11|12"_s, u"20|||||3||1"_s}));
    exec("delete from kyutype");
    集計_出勤明細表(report, work);
    EXPECT_EQ(report.hyou_day.Cols(), 12) << "ten columns stay where there are no kinds";
}

TEST_F(AttendanceDetail, ContinuousPrintingGoesThroughTheRangeAndPassesOverGapsAndTheIdle) {
    report.conditions.print_flg = true;
    choose_employees(u"4"_s, u"1"_s);
    集計_出勤明細表(report, work);
    EXPECT_EQ(printed, (QStringList{u"9:山田"_s, u"【10】田中"_s})) << "木村 has nothing";
    EXPECT_EQ(report.midasi[1], u"【100】木村"_s);
    EXPECT_EQ(cell(5, 7), u""_s) << "nothing stays of the employee before";
    printed.clear();
    report.conditions.print_zero = true;
    choose_employees(u""_s, u""_s);
    集計_出勤明細表(report, work);
    EXPECT_EQ(printed.size(), 3);

    work.progress = [](qint64 done, qint64) { return done < 1; };
    EXPECT_EQ(集計_出勤明細表(report, work), Outcome::Cancelled);
    EXPECT_EQ(printed.sliced(3), QStringList{u"9:山田"_s});
    EXPECT_EQ(report.midasi[1] + cell(total_row, 5), u"9:山田160:30"_s) << "the last one stands whole";

    work.progress = {};
    report.conditions.print_flg = false;
    集計_出勤明細表(report, work);
    EXPECT_EQ(report.chulab, u"【100】木村"_s) << "the last of all";
    EXPECT_EQ(printed.size(), 4);
}

TEST_F(AttendanceDetail, AMonthFromThe16thCrossesTheCalendarMonth) {
    tree.settings.month_start_day = 16;
    exec("insert into rovmei values (2, 20041015, 100, 100, 1, 1, ''), (2, 20041016, 200, 200, 1, 1, ''),"
         " (2, 20041115, 300, 300, 1, 1, ''), (2, 20041116, 400, 400, 1, 1, ''), (2, 20041032, 0, 0, 0, 900, '')");
    choose_employees(u"2"_s, u"2"_s);
    集計_出勤明細表(report, work);
    EXPECT_EQ(row(report.hyou, 1), u"16|土|2:00|2:00|0:01|0:01||"_s);
    EXPECT_EQ(row(report.hyou, 31), u"15|月|3:00|3:00|0:01|0:01||"_s);
    EXPECT_EQ(cell(total_row, 5), u"9:00"_s);
    EXPECT_EQ(cell(21, 7), u""_s) << "the leave of the 5th of October lies in the month before";
}

TEST_F(AttendanceDetail, AMonthWithoutItsFirstDayIsReadFromTheFirstOfTheNext) {
    tree.settings.month_start_day = 31;
    report.conditions.yyyymm = {u"2004"_s, u"4"_s};
    exec("insert into rovmei values (2, 20040430, 100, 100, 1, 1, ''), (2, 20040501, 200, 200, 1, 1, ''),"
         " (2, 20040530, 300, 300, 1, 1, ''), (2, 20040531, 400, 400, 1, 1, ''), (2, 20040432, 0, 0, 0, 700, '');"
         "insert into kinjisyu values (2, 20040501, 11, 1), (2, 20040432, 11, 700);"
         "insert into kyumei values (2, 20040501, 2, '公休', '0')");
    choose_employees(u"2"_s, u"2"_s);
    集計_出勤明細表(report, work);
    EXPECT_EQ(row(report.hyou, 1), u"1|土|2:00|2:00|0:01|0:01||公休|0:01"_s);
    EXPECT_EQ(row(report.hyou, 30), u"30|日|3:00|3:00|0:01|0:01|||"_s);
    EXPECT_EQ(row(report.hyou, 31), u"||||||||"_s);
    EXPECT_EQ(row(report.hyou, total_row), u"合計|||||7:00|||7:00"_s);
    EXPECT_EQ(report.midasi[0], u"出勤明細一覧表  2004年 4月"_s);
}

TEST_F(AttendanceDetail, AShortMonthLeavesItsLastRowsEmptyAndNoMonthAllOfThem) {
    report.conditions.yyyymm = {u"2004"_s, u"2"_s};
    書式設定_出勤明細一覧(report, session);
    EXPECT_EQ(cell(29, 0) + cell(30, 0), u"29"_s);
    EXPECT_EQ(report.hyou.Look(29, 1).fore, sunday_fore);
    report.conditions.yyyymm = {u"2004"_s, u"13"_s};
    EXPECT_EQ(集計_出勤明細表(report, work), Outcome::Done);
    EXPECT_EQ(cell(1, 0), u""_s);
    report.conditions.yyyymm = {u"16"_s, u"10"_s};
    show_eras();
    choose_employees(u"1"_s, u"1"_s);
    集計_出勤明細表(report, work);
    EXPECT_EQ(report.midasi[0], u"出勤明細一覧表  平成 16年 10月"_s);
    EXPECT_EQ(cell(1, 6), u"直行"_s);
}

} // namespace reports
