#include "setup/fir_start.h"

#include "base/keys.h"
#include "platform/paths.h"
#include "setup/company.h"
#include "store/error.h"

#include <QFile>

namespace setup {

class FirstStart : public Company {
protected:
    QTemporaryDir programs;

    fir_start loaded() {
        fir_start form(session, programs.path());
        form.Form_Load();
        return form;
    }

    void add_staff() {
        comsys().exec("insert into syain values (0, null, '全体', 'ゼンタイ', '', '', ''),"
                      " (7, 12, ' 山田 太郎 ', 'ヤマダ', null, 'A', ''), (4, null, '佐藤', 'サトウ', '', '', '')");
    }

    /// Masters of an earlier hand.
    void add_masters() {
        rovdata().exec("insert into syain (システム番号, 社員番号, 社員名) values (1, 5, '旧');"
                       "insert into kinsyu values (40, '旧'); insert into kyutype values (40, '旧', 1, 0);"
                       "insert into kintype (システム番号, 曜日, 連番) values (40, 1, 1);"
                       "insert into syainkinmu values (1, 40)");
    }

    QStringList masters() {
        return rows("select システム番号, 社員番号, 社員名 from syain") + rows("select * from kinsyu") +
               rows("select * from kintype") + rows("select * from syainkinmu") + rows("select * from kyutype");
    }
};

TEST_F(FirstStart, SeedsACompleteWorkingRuleForTheCompanyWideStaff) {
    add_staff();
    add_masters();
    fir_start form = loaded();
    form.botan_Click();
    EXPECT_EQ(rows("select * from syain order by rowid"),
        QStringList({u"7|12|山田 太郎|ヤマダ||A|"_s, u"4|0|佐藤|サトウ|||"_s}));
    EXPECT_EQ(rows("select * from kinsyu"), QStringList({u"1|早朝"_s, u"2|通常"_s, u"3|残業"_s}));
    for (int weekday = 0; weekday < 7; ++weekday) {
        const QString day = u"1|通常勤務|%1|"_s + QString::number(weekday);
        EXPECT_EQ(rows("select * from kintype where 曜日=" + std::to_string(weekday) + " order by 連番"),
            QStringList({day.arg(1) + u"|0|800|1|0|0|0|0|0|0|0"_s, day.arg(2) + u"|800|1700|2|0|700|100|0|0|0|0"_s,
                day.arg(3) + u"|1700|2400|3|0|0|0|0|0|0|0"_s}));
    }
    EXPECT_EQ(rows("select count(*) from kintype"), QStringList{u"21"_s});
    EXPECT_EQ(rows("select * from syainkinmu"), QStringList({u"7|1"_s, u"4|1"_s}));
    EXPECT_EQ(rows("select * from kyutype"), QStringList({u"1|公休|1|0"_s, u"2|病欠|0|0"_s, u"3|有休|0|0"_s,
                                                 u"4|振替休|0|0"_s, u"5|通常|1|1"_s, u"6|日曜出勤|0|1"_s}));
}

TEST_F(FirstStart, ASecondUseGivesNewNumbers) {
    loaded().botan_Click();
    loaded().botan_Click();
    EXPECT_EQ(rows("select min(システム番号), max(システム番号) from kinsyu"), QStringList{u"4|6"_s});
    EXPECT_EQ(rows("select distinct システム番号, 時間種類 from kintype order by 時間種類"),
        QStringList({u"2|4"_s, u"2|5"_s, u"2|6"_s}));
    EXPECT_EQ(rows("select min(システム番号), max(システム番号) from kyutype"), QStringList{u"7|12"_s});
}

TEST_F(FirstStart, WithoutACompanyWideStaffTheMastersAreStillComplete) {
    add_masters();
    {
        auto database = rovdata();
        plant(database, Seed{std::nullopt, {8, 9, 10}, 3, {1, 2, 3, 4, 5, 6}}, Bands{});
    }
    EXPECT_EQ(rows("select システム番号, 社員名 from syain") + rows("select * from syainkinmu"),
        QStringList({u"1|旧"_s, u"1|3"_s}))
        << "a staff that isn't there leaves the employees";
    loaded().botan_Click();
    EXPECT_EQ(rows("select * from syain") + rows("select * from syainkinmu"), QStringList()) << "an empty one doesn't";
    EXPECT_EQ(rows("select count(*) from kintype"), QStringList{u"21"_s});
}

TEST_F(FirstStart, AFailureLeavesTheMastersAsTheyWereAndTheWindowOpen) {
    add_staff();
    add_masters();
    const QStringList before = masters();
    rovdata().exec("create trigger full before insert on kyutype when new.休暇名='日曜出勤'"
                   " begin select raise(abort, 'full'); end");
    fir_start form = loaded();
    form.atai_Change(u"21"_s);
    EXPECT_THROW(form.botan_Click(), store::Error);
    EXPECT_EQ(masters(), before);
    EXPECT_EQ(shared(u"月初日付"_s), QString());
    EXPECT_FALSE(form.close_wanted);

    rovdata().exec("drop trigger full");
    form.botan_Click();
    EXPECT_EQ(rows("select 開始時間, 終了時間 from kintype where 曜日=0 and 連番=2"), QStringList{u"800|1700"_s});
    EXPECT_EQ(shared(u"月初日付"_s), u"21"_s);

    const QStringList seeded = masters();
    ASSERT_TRUE(QFile::remove(store::comsys_path(tree.settings)));
    EXPECT_THROW(loaded().botan_Click(), store::Error) << "there is nobody to give numbers";
    EXPECT_EQ(masters(), seeded);
}

TEST_F(FirstStart, TheFirstDayIsHeldWithinAMonthAndThePrinterIsThisPcs) {
    for (const auto& [typed, stored] : {std::pair(u"11"_s, u"11"_s), {u"0"_s, u"1"_s}, {u"40"_s, u"1"_s},
             {u"31"_s, u"31"_s}, {u""_s, u"1"_s}, {u"1日5"_s, u"15"_s}}) {
        fir_start form = loaded();
        form.atai_Change(typed);
        EXPECT_EQ(form.notice.has_value(), typed != stored);
        form.prconb_Click(1);
        form.botan_Click();
        EXPECT_EQ(shared(u"月初日付"_s), stored) << typed.toStdString();
        EXPECT_EQ(of_this_pc(u"プリンター１"_s), u"PDF"_s);
    }
    EXPECT_EQ(loaded().prconb.text(), u"PDF"_s) << "the one that stands already";
    set_of_this_pc(u"プリンター１"_s, u"gone"_s);
    EXPECT_EQ(loaded().prconb.text(), u"Office"_s);
    host.printer_names.clear();
    EXPECT_EQ(loaded().prconb.index, -1);
}

TEST_F(FirstStart, ABoxShowsDigitsInHandAndTimeWhenLeft) {
    const std::tuple<QString, QString, int, QString> cases[]{{u"830"_s, u"8:30"_s, 830, {}},
        {u"8:30"_s, u"8:30"_s, 830, {}}, {u"5"_s, u"0:05"_s, 5, u"5 は 0:05 です（5時は 500）"_s},
        {u"2530"_s, u"25:30"_s, 2530, {}}, {u""_s, u""_s, 0, {}},
        {u"875"_s, u"8:75"_s, 875, u"8:75 は時刻になりません（分は 59 まで）"_s},
        {u"あ"_s, u"0:0あ"_s, 0, u"数字で入力します（8:30 は 830）"_s}};
    for (const auto& [typed, left, minutes, said] : cases) {
        fir_start form = loaded();
        const TimePlace place{TimeBox::st_time, 1};
        form.time_GotFocus(place);
        EXPECT_EQ(form.text(place), u"800"_s);
        form.time_Change(place, typed);
        form.time_LostFocus(place);
        EXPECT_EQ(form.text(place), left);
        EXPECT_EQ(form.notice ? form.notice->text : QString(), said);
        form.time_KeyDown(place, key::down);
        form.time_GotFocus(place);
        form.time_LostFocus(place);
        EXPECT_FALSE(form.notice) << "what stands is told once";
        form.botan_Click();
        EXPECT_EQ(rows("select distinct 開始時間 from kintype where 連番=2"), QStringList{QString::number(minutes)})
            << typed.toStdString();
    }
}

TEST_F(FirstStart, WhatAFigureMayBeMeantForIsSaidByItsBox) {
    for (const auto& [box, typed, said] : {std::tuple(TimeBox::kyu_time, u"8"_s, u"8 は 0:08 です（8時間は 800）"_s),
             {TimeBox::kyu_time, u"9"_s, u""_s}, {TimeBox::kyukin_time, u"23"_s, u"23 は 0:23 です（23時間は 2300）"_s},
             {TimeBox::kyukin_time, u"24"_s, u""_s},
             {TimeBox::kyukin_time, u"x"_s, u"数字で入力します（1時間は 100）"_s}}) {
        fir_start form = loaded();
        form.time_GotFocus({box, 0});
        form.time_Change({box, 0}, typed);
        form.time_LostFocus({box, 0});
        EXPECT_EQ(form.notice ? form.notice->text : QString(), said) << typed.toStdString();
    }
}

TEST_F(FirstStart, ThePictureOfTheDayFollowsWhatIsTyped) {
    fir_start form = loaded();
    form.time_Change({TimeBox::en_time, 0}, u"900"_s);
    form.time_Change({TimeBox::en_time, 2}, u""_s);
    const common::DayPicture day = form.picture();
    ASSERT_EQ(day.segments.size(), 3) << "what has no end goes on to midnight";
    EXPECT_EQ(day.overlaps, (QList<common::Span>{{minutes(8 * 60), minutes(9 * 60)}}));
    for (int band = 0; band < 3; ++band)
        EXPECT_TRUE(day.segments[band].colour == band && day.segments[band].band == 0);
}

TEST_F(FirstStart, EnterGoesThroughTheBandsAndStaysInTheLastBox) {
    fir_start form = loaded();
    TimePlace at{TimeBox::st_time, 0};
    for (int step = 1; step < seeded_band_count * time_box_count + 3; ++step) {
        EXPECT_FALSE(form.time_KeyDown(at, key::down));
        ASSERT_TRUE(form.time_KeyDown(at, key::enter));
        at = *form.focus;
        const int place = std::min(step, seeded_band_count * time_box_count - 1);
        EXPECT_EQ(at, (TimePlace{TimeBox(place % time_box_count), place / time_box_count})) << step;
    }
}

TEST_F(FirstStart, StartsTheProgramAnewIfItLiesInItsFolder) {
    loaded().botan_Click();
    EXPECT_EQ(host.started, QStringList());
    const QString program = platform::program_file(programs.filePath(u"rovena.exe"_s));
    ASSERT_TRUE(QFile(program).open(QIODevice::WriteOnly));
    fir_start form = loaded();
    form.botan_Click();
    form.botan_Click(); // the second click of a double one
    EXPECT_EQ(host.started, QStringList{program});
    EXPECT_TRUE(form.close_wanted);
}

} // namespace setup
