#include "entry/calculation.h"
#include "entry/day_kinds.h"
#include "entry/layout.h"
#include "entry/month_load.h"
#include "entry/work_type.h"
#include "install/company.h"
#include "store/numbering.h"
#include "store/setup.h"

#include <QTemporaryDir>

namespace install {

class SampleCompany : public testing::Test {
protected:
    QTemporaryDir folder;

    base::Settings make(const QString& name, const Sample& sample) {
        return make_company(folder.filePath(name), sample);
    }

    static entry::MonthSheet load(Database& rovdata, EmployeeKey employee, const CompanyMonth& month) {
        entry::MonthSheet sheet;
        entry::KindList kinds;
        load_day_kinds(sheet, kinds, rovdata);
        書式設定(sheet, month);
        書式設定_日(sheet);
        const QString type = entry::時間外フォーム呼出処理(rovdata, employee).kintypecd;
        勤務タイプデーター呼出処理(sheet, rovdata, WorkTypeKey(type.toInt()));
        勤務時間取得(sheet, rovdata, employee);
        return sheet;
    }

    static QStringList shown(const entry::MonthSheet& sheet) {
        QStringList cells;
        for (const auto& [grid, rows] : {std::pair(&sheet.hyou, 33), {&sheet.hyou_day, 3}})
            for (int r = 0; r < rows; ++r)
                for (int c = 0; c < grid->Cols(); ++c)
                    cells << (*grid)(r, c);
        return cells;
    }
};

TEST_F(SampleCompany, IsTheSameForTheSameArguments) {
    const base::Settings first = make(u"a"_s, {9, 2, 202602});
    const base::Settings second = make(u"b"_s, {9, 2, 202602});
    for (const auto& [kind, path] : std::span(shared_files).first(2))
        EXPECT_TRUE(all_rows(path(first), kind) == all_rows(path(second), kind));
    const auto month = [](const base::Settings& tree) {
        return rows_of(rovdata_path(tree), Kind::Rovdata,
            "select * from rovmei where 社員システム番号=5 and 出社日>20260200 order by 出社日");
    };
    EXPECT_EQ(month(first).size(), 29);
    EXPECT_EQ(month(first), month(make(u"c"_s, {12, 5, 202602}))) << "it doesn't depend on the company's size";
}

TEST_F(SampleCompany, IsAtWorkAndItsNumbersGoOnWhereTheyStand) {
    base::Settings settings = make(u"a"_s, {12, 1, 202611});
    EXPECT_FALSE(初期セットアップ(settings)) << "no wizard";
    EXPECT_EQ(SettingTables(settings).設定読込(u"rov_kihon"_s, u"sokdataバージョン"_s), table_stamp);
    EXPECT_EQ(採番(settings, u"社員番号"_s), 13);
    EXPECT_EQ(採番(settings, u"勤務種類"_s), 6);
    EXPECT_EQ(rows_of(rovdata_path(settings), Kind::Rovdata,
                  "select count(*), count(distinct 社員番号), min(システム番号) from syain"),
        QStringList{u"12|12|1"_s});
}

TEST_F(SampleCompany, HasAttendanceThatCalculatesToItselfOnTheEntrySheet) {
    const base::Settings settings = make(u"a"_s, {12, 3, 202603});
    Database rovdata = Database::open(rovdata_path(settings), Kind::Rovdata);
    for (int employee = 1; employee <= 12; ++employee)
        for (int month = 1; month <= 3; ++month) {
            entry::MonthSheet sheet = load(rovdata, EmployeeKey(employee), CompanyMonth(2026, month, 1));
            const QStringList saved = shown(sheet);
            int worked = 0;
            for (int r = 1; r <= 31; ++r) {
                if (sheet.hyou(r, entry::col::clock_in).isEmpty())
                    continue;
                sheet.entry_cell = {r, entry::col::clock_in};
                出勤集計処理(sheet, r);
                ++worked;
            }
            EXPECT_GT(worked, 8);
            EXPECT_EQ(shown(sheet), saved) << employee << " in month " << month;
        }
}

} // namespace install
