#include "entry/company.h"
#include "entry/month_load.h"

#include <gtest/gtest.h>

using namespace entry;

namespace {

class MonthLoad : public testing::Test {
protected:
    void load(MonthSheet& sheet, qint64 employee = 1) {
        auto database = company.data();
        勤務時間取得(sheet, database, employee);
    }

    Company company;
};

} // namespace

TEST_F(MonthLoad, ADaysTimesShowAsTheyWereMeant) {
    struct Case {
        const char* stored; ///< 出社時間, 退社時間, 休憩時間, 勤務時間, 備考
        QString shown;
    };
    const Case cases[] = {
        {"830, 1715, 100, 745, ' 直行 '", u"8:30|17:15|1:00|7:45|直行"_s},
        {"2150, 2530, 0, 340, ''", u"21:50|1:30||3:40|"_s},
        {"800, 2400, 0, 0, null", u"8:00|24:00|||"_s},
        {"0, 0, 0, 0, null", u"||||"_s},
        {"null, null, null, null, null", u"||||"_s},
        {"0, 900, 5, 855, null", u"0:00|9:00|0:05|8:55|"_s},
        {"2400, 2400, null, null, null", u"24:00|24:00|||"_s},
    };
    for (const Case& c : cases) {
        company.exec("delete from rovmei");
        company.exec("insert into rovmei values (1, 20040305, " + std::string(c.stored) + ")");
        MonthSheet sheet = month_sheet({11});
        load(sheet);
        EXPECT_EQ(cells_from(sheet.hyou, 5, 2).first(5).join(u'|'), c.shown) << c.stored;
    }
}

TEST_F(MonthLoad, OnlyTheDaysOfTheMonthAndItsTotalAreTaken) {
    company.exec(R"(insert into rovmei (社員システム番号, 出社日, 出社時間, 勤務時間, 備考) values
        (1, 20040229, 801, 1, null), (1, 20040301, 802, 2, null), (1, 20040331, 803, 3, null), (1, 20040332, 804, 17000, '計'),
        (1, 20040401, 805, 5, null), (2, 20040302, 806, 6, null), (1, 20040400, 807, 7, null))");
    MonthSheet sheet = month_sheet({});
    load(sheet);
    QStringList clock_ins;
    for (int r = 1; r < row::count; ++r)
        if (!sheet.hyou(r, 5).isEmpty())
            clock_ins << u"%1=%2"_s.arg(r).arg(sheet.hyou(r, 2));
    EXPECT_EQ(clock_ins.join(u' '), u"1=8:02 31=8:03 32="_s);
    EXPECT_EQ(sheet.hyou(32, 5), u"170:00"_s);
    EXPECT_EQ(sheet.hyou(32, 6), u"計"_s);
}

TEST_F(MonthLoad, AMonthFromThe21stTakesTheDaysOfTwoCalendarMonthsAndItsTotalBetween) {
    company.exec(R"(insert into kinjisyu values (1, 20040320, 11, 1), (1, 20040321, 11, 2), (1, 20040331, 11, 3),
        (1, 20040332, 11, 4), (1, 20040401, 11, 5), (1, 20040405, 11, 6), (1, 20040420, 11, 7), (1, 20040421, 11, 8),
        (1, 8805, 11, 9), (1, 20040232, 11, 10), (1, 20040432, 11, 11))");
    MonthSheet sheet = month_sheet({11}, 3, 21);
    load(sheet);
    QStringList hours;
    for (int r = 1; r < row::category_number; ++r)
        if (!sheet.hyou(r, 8).isEmpty())
            hours << u"%1=%2"_s.arg(r).arg(sheet.hyou(r, 8));
    EXPECT_EQ(hours.join(u' '), u"1=0:02 11=0:03 12=0:05 16=0:06 31=0:07 32=0:04"_s);
}

TEST_F(MonthLoad, HoursGoToTheirCategoryAndOthersAreDropped) {
    company.exec("insert into kinjisyu values (1, 20040302, 12, 130), (1, 20040302, 99, 200), (1, 20040302, 11, 0)");
    MonthSheet sheet = month_sheet({11, 12});
    load(sheet);
    EXPECT_EQ(cells_from(sheet.hyou, 2, 8), QStringList({u""_s, u"1:30"_s}));
}

TEST_F(MonthLoad, CountsAreTheSavedOnesByTagAndFamily) {
    company.exec(R"(insert into kinnisu values (1, 200403, -1, 0, 20), (1, 200403, -2, 0, 11), (1, 200403, 1, 1, 2),
        (1, 200403, 3, 2, 1234), (1, 200403, 11, 0, 19), (1, 200403, 4, 1, 7), (1, 200403, 2, 1, 0), (1, 200404, 4, 2, 9),
        (2, 200403, 4, 2, 9))");
    MonthSheet sheet = month_sheet({11});
    load(sheet);
    EXPECT_EQ(cells_from(sheet.hyou_day, strip::count, 0).join(u'|'), u"20|11|1,234||2||19"_s);
}

TEST_F(MonthLoad, KindsComeBackWithTheirFamilyAndNoDayIsMarked) {
    company.exec(R"(insert into kyumei values (1, 20040302, 4, ' 休日出勤 ', '1'), (1, 20040303, 1, '有休', '0'),
        (1, 20040332, 1, '有休', '0'))");
    MonthSheet sheet = month_sheet({11});
    load(sheet);
    EXPECT_EQ(cells_from(sheet.hyou_system, 2, 0), QStringList({u"4"_s, u"休日出勤"_s, u""_s, u"1"_s}));
    EXPECT_EQ(sheet.hyou(3, 7), u"有休"_s);
    EXPECT_EQ(sheet.hyou(32, 7), u""_s);
    for (int r = 0; r < row::count; ++r)
        EXPECT_EQ(sheet.mark(r), u""_s);
}

TEST_F(MonthLoad, EveryQueryOfItIsAnsweredByAKey) {
    auto database = company.data();
    const char* queries[] = {
        "select 1 from rovmei where 社員システム番号 = ? and 出社日 between ? and ? order by 出社日",
        "select 1 from kinjisyu where 社員システム番号 = ? and 年月日 between ? and ? order by 年月日",
        "select 1 from kyumei where 社員システム番号 = ? and 年月日 between ? and ? order by 年月日",
        "select 1 from kinnisu where 社員システム番号 = ? and 年月 = ?",
        "select 勤務タイプ from syainkinmu where システム社員番号 = ? order by rowid limit 1",
        "select 勤務タイプ名 from kintype where システム番号 = ? order by rowid limit 1",
        "select 1 from kintype, kinsyu where kintype.システム番号 = ? and kinsyu.システム番号 = 時間種類"
        " order by 曜日, 連番, 開始時間, 終了時間, 時間計算",
    };
    for (const char* query : queries) {
        auto plan = database.prepare("explain query plan " + std::string(query));
        while (plan.step())
            EXPECT_FALSE(plan.row().text(3).startsWith(u"SCAN")) << query << ": " << plan.row().text(3).toStdString();
    }
}
