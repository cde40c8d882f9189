#include "dump.h"
#include "entry/calculation.h"
#include "entry/day_kinds.h"
#include "entry/layout.h"
#include "entry/month_load.h"
#include "entry/work_type.h"
#include "install/install.h"
#include "store/files.h"
#include "store/numbering.h"
#include "store/setup.h"

#include <QTemporaryDir>

using namespace base;
using namespace store;

namespace {

class SampleCompany : public testing::Test {
protected:
    QTemporaryDir folder;

    frame::Settings make(const QString& name, const install::Sample& sample) {
        install::Options options;
        options.root = folder.filePath(name);
        options.sample = sample;
        install::run(options, folder.path(), [](const QString&) {});
        return settings_of(options);
    }

    static entry::MonthSheet load(Database& rovdata, qint64 employee, const CompanyMonth& month) {
        entry::MonthSheet sheet;
        entry::KindList kinds;
        load_day_kinds(sheet, kinds, rovdata);
        書式設定(sheet, month);
        書式設定_日(sheet);
        勤務タイプデーター呼出処理(sheet, rovdata, entry::時間外フォーム呼出処理(rovdata, employee).kintypecd.toInt());
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
    const frame::Settings first = make(u"a"_s, {9, 2, 202602});
    const frame::Settings second = make(u"b"_s, {9, 2, 202602});
    EXPECT_EQ(all_rows(comsys_path(first), Kind::Comsys), all_rows(comsys_path(second), Kind::Comsys));
    EXPECT_EQ(all_rows(rovdata_path(first), Kind::Rovdata), all_rows(rovdata_path(second), Kind::Rovdata));

    const frame::Settings larger = make(u"c"_s, {12, 5, 202602});
    Database small = Database::open(rovdata_path(first), Kind::Rovdata);
    Database large = Database::open(rovdata_path(larger), Kind::Rovdata);
    const QString month = u"select * from rovmei where 社員システム番号=5 and 出社日>20260200 order by 出社日"_s;
    EXPECT_EQ(rows_of(small, month).size(), 29);
    EXPECT_EQ(rows_of(small, month), rows_of(large, month)) << "a month doesn't depend on the company's size";
}

TEST_F(SampleCompany, IsAtWorkAndItsNumbersGoOnWhereTheyStand) {
    frame::Settings settings = make(u"a"_s, {12, 1, 202611});
    SettingTables tables(settings);
    EXPECT_FALSE(初期セットアップ(settings)) << "no wizard";
    EXPECT_EQ(tables.設定読込(u"rov_kihon"_s, u"sokdataバージョン"_s), table_stamp);
    EXPECT_EQ(採番(settings, u"社員番号"_s), 13);
    EXPECT_EQ(採番(settings, u"勤務種類"_s), 6);
    Database rovdata = Database::open(rovdata_path(settings), Kind::Rovdata);
    EXPECT_EQ(rows_of(rovdata, u"select count(*), count(distinct 社員番号), min(システム番号) from syain"_s),
        QStringList{u"12|12|1"_s});
}

TEST_F(SampleCompany, HasAttendanceThatCalculatesToItselfOnTheEntrySheet) {
    const frame::Settings settings = make(u"a"_s, {12, 3, 202603});
    Database rovdata = Database::open(rovdata_path(settings), Kind::Rovdata);
    for (int employee = 1; employee <= 12; ++employee)
        for (int month = 1; month <= 3; ++month) {
            entry::MonthSheet sheet = load(rovdata, employee, CompanyMonth(2026, month, 1));
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

} // namespace
