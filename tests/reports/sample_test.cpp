#include "base/company_month.h"
#include "install/install.h"
#include "reports/attendance_detail.h"
#include "reports/company.h"
#include "reports/work_time_list.h"

namespace reports {

TEST(SampleCompany, TheListOfAMonthAddsUpToTheTotalsStoredWithEachEmployee) {
    const QTemporaryDir folder;
    install::Options options;
    options.root = folder.path();
    options.sample = install::Sample{12, 2, 202611};
    install::run(options, folder.path(), [](const QString&) {});
    frame::Settings settings = settings_of(options);
    support::FakeHost host;
    store::SettingTables tables(settings);
    frame::TurnLink link(settings, host);
    frame::Session session{settings, host, tables, link};
    Work work{session, {}, {}};

    Report list;
    list.conditions.ymd = {u"2026/10/1"_s, u"2026/10/31"_s};
    集計_勤務時間一覧表(list, work);
    ASSERT_EQ(list.hyou.Rows(), times::first_employee + 12);
    for (int row = times::first_employee; row < list.hyou.Rows(); ++row) {
        Report sheet;
        sheet.conditions.yyyymm = {u"2026"_s, u"10"_s};
        sheet.conditions.systancd = {list.hyou(row, times::key_col), list.hyou(row, times::key_col)};
        集計_出勤明細表(sheet, work);
        EXPECT_EQ(list.hyou(row, times::break_col), sheet.hyou(total_row, 4));
        EXPECT_EQ(list.hyou(row, times::break_col + 1), sheet.hyou(total_row, 5));
        QHash<QString, QString> hours;
        for (int col = detail::first_category; col < sheet.hyou.Cols(); ++col)
            hours[sheet.hyou(detail::category_row, col)] = sheet.hyou(total_row, col);
        for (int col = times::first_category; col < list.hyou.Cols(); ++col)
            EXPECT_EQ(list.hyou(row, col), hours.value(list.hyou(times::category_row, col)));
    }
}

} // namespace reports
