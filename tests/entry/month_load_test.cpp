#include "entry/company.h"
#include "entry/month_load.h"

#include <gtest/gtest.h>

using namespace entry;

namespace {

class MonthLoad : public testing::Test {
protected:
    MonthSheet load(MonthSheet sheet) {
        auto database = company.rovdata();
        勤務時間取得(sheet, database, EmployeeKey(1));
        return sheet;
    }

    /// The rows with something in the second column, with both their cells.
    static QString filled(const MonthSheet& sheet, int first, int second) {
        QStringList rows;
        for (int r = 1; r < row::category_number; ++r)
            if (!sheet.hyou(r, second).isEmpty())
                rows << u"%1=%2/%3"_s.arg(r).arg(sheet.hyou(r, first), sheet.hyou(r, second));
        return rows.join(u' ');
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
        {"0, 0, null, null, null", u"||||"_s},
        {"0, 900, 5, 855, null", u"0:00|9:00|0:05|8:55|"_s},
        {"2400, 2400, null, null, null", u"24:00|24:00|||"_s},
    };
    for (const Case& c : cases) {
        company.exec("delete from rovmei");
        company.exec("insert into rovmei values (1, 20040305, " + std::string(c.stored) + ")");
        EXPECT_EQ(cells_from(load(month_sheet({11})).hyou, 5, col::clock_in, 5), c.shown) << c.stored;
    }
}

TEST_F(MonthLoad, OnlyTheDaysOfTheMonthAndItsTotalAreTaken) {
    company.exec(R"(insert into rovmei (社員システム番号, 出社日, 出社時間, 勤務時間, 備考) values
        (1, 20040229, 801, 1, null), (1, 20040301, 802, 2, null), (1, 20040331, 803, 3, null), (1, 20040332, 804, 17000, '計'),
        (1, 20040401, 805, 5, null), (2, 20040302, 806, 6, null), (1, 20040400, 807, 7, null))");
    EXPECT_EQ(filled(load(month_sheet({})), 2, 5), u"1=8:02/0:02 31=8:03/0:03 32=/170:00"_s);
}

TEST_F(MonthLoad, AMonthFromThe21stTakesTheDaysOfTwoCalendarMonthsAndItsTotalBetween) {
    company.exec(R"(insert into kinjisyu values (1, 20040320, 11, 1), (1, 20040321, 11, 2), (1, 20040331, 11, 3),
        (1, 20040332, 11, 4), (1, 20040401, 11, 5), (1, 20040405, 11, 6), (1, 20040420, 11, 7), (1, 20040421, 11, 8),
        (1, 8805, 11, 9), (1, 20040232, 11, 10), (1, 20040432, 11, 11), (1, 20040402, 99, 200))");
    EXPECT_EQ(filled(load(month_sheet({11}, 3, 21)), 2, 8), u"1=/0:02 11=/0:03 12=/0:05 16=/0:06 31=/0:07 32=/0:04"_s);
}

TEST_F(MonthLoad, CountsAreTheSavedOnesByTagAndFamily) {
    company.exec(R"(insert into kinnisu values (1, 200403, -1, 0, 20), (1, 200403, -2, 0, 11), (1, 200403, 1, 1, 2),
        (1, 200403, 3, 2, 1234), (1, 200403, 11, 0, 19), (1, 200403, 4, 1, 7), (1, 200403, 2, 1, 0), (1, 200404, 4, 2, 9),
        (2, 200403, 4, 2, 9))");
    EXPECT_EQ(cells_from(load(month_sheet({11})).hyou_day, strip::count, 0), u"20|11|1,234||2||19"_s);
}

TEST_F(MonthLoad, KindsComeBackWithTheirFamilyAndNoDayIsMarked) {
    company.exec(R"(insert into kyumei values (1, 20040302, 4, ' 休日出勤 ', '1'), (1, 20040303, 1, '有休', '0'),
        (1, 20040332, 1, '有休', '0'))");
    const MonthSheet sheet = load(month_sheet({11}));
    EXPECT_EQ(cells_from(sheet.hyou_system, 2, 0), u"4|休日出勤||1"_s);
    EXPECT_EQ(sheet.hyou(3, 7) + sheet.hyou(32, 7), u"有休"_s);
}
