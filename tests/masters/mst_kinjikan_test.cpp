#include "masters/mst_kinjikan.h"

#include "base/keys.h"
#include "masters/company.h"

namespace masters {

constexpr int every_day = 7, monday_to_saturday = 8, monday_to_friday = 9;

class WorkTypes : public Company {
protected:
    mst_kinjikan form{session};

    void SetUp() override {
        add_category(1, u"通常"_s);
        add_category(2, u"残業"_s);
    }

    void enter(int row, int col, const QString& typed) {
        form.hyou_Click({row, col});
        form.atai_Change(typed);
    }

    void choose(int row, int col, int item) {
        form.hyou_Click({row, col});
        form.atai_com_Click(col == band_col::mode_name, item);
    }

    void enter_band(int row, const QString& start, const QString& end) {
        enter(row, band_col::start, start);
        enter(row, band_col::end, end);
    }

    void open_a_named_day(int day = 1) {
        form.Form_Load();
        form.kinjikanmei_Change(u"普通"_s);
        form.hyou_youbi_Click(day);
        enter_band(1, u"830"_s, u"1715"_s);
    }

    void open_the_first_type() {
        form.Form_Load();
        form.hyoulist_Click(1);
    }

    QStringList stored() {
        return rows(rovdata(), "select システム番号, 勤務タイプ名, 曜日, 連番, 開始時間, 終了時間, 時間種類, 時間計算"
                               " from kintype order by システム番号, 曜日, 連番");
    }

    QStringList stored_rules() {
        return rows(rovdata(), "select 曜日, 休憩勤務時間1, 休憩時間1 from kintype order by 曜日");
    }

    /// The days of the strip with a dot.
    QString dotted() {
        form.mark_unregistered();
        QString days;
        for (int day = 0; day < weekday_count; ++day)
            days += form.hyou_youbi.Look(0, day).dot ? form.hyou_youbi(0, day) : QString();
        return days;
    }

    /// So many cells of a row from one on, joined by "|".
    QString grid(int row, int col, int count) const {
        QStringList cells;
        for (int end = col + count; col < end; ++col)
            cells << form.hyou(row, col);
        return cells.join(u'|');
    }
};

TEST_F(WorkTypes, TypedTimesAreReadByPlaceAndImpossibleOnesEmptied) {
    form.Form_Load();
    const std::pair<QString, QString> cases[] = {{u"830"_s, u"8:30"_s}, {u"8"_s, u"0:08"_s}, {u""_s, u""_s},
        {u"2359"_s, u"23:59"_s}, {u"2400"_s, u""_s}, {u"860"_s, u""_s}, {u"-530"_s, u""_s}, {u"12345"_s, u"123:45"_s}};
    for (const auto& [typed, cell] : cases) {
        enter(3, band_col::end, typed);
        form.atai_LostFocus();
        EXPECT_EQ(form.hyou(3, band_col::end), cell) << typed.toStdString();
    }
}

TEST_F(WorkTypes, TheKeysPassTheListsOver) {
    form.Form_Load();
    enter(1, band_col::start, u"830"_s);
    EXPECT_TRUE(form.atai_KeyDown(key::enter));
    EXPECT_EQ(form.hyou(1, band_col::start), u"8:30"_s) << "committed before the next cell opens";
    EXPECT_TRUE(form.atai_KeyDown(key::right));
    EXPECT_EQ(form.atai.cell, (Cell{1, band_col::first_rule}));
    enter(band_count, band_col::last_rule, u"15"_s);
    EXPECT_FALSE(form.atai_KeyDown(key::enter)) << "the last row";
    for (const Cell no_box : {Cell{0, band_col::start}, {1, band_col::row_number}}) {
        form.hyou_Click(no_box);
        form.atai_Change(u"900"_s);
        EXPECT_FALSE(form.atai.active || form.atai_KeyDown(key::enter)) << no_box.col;
    }
    for (const auto& [character, stands] :
        {std::pair(u'0', true), {u'9', true}, {u'-', true}, {u'\b', true}, {u'/', false}, {u':', false}})
        EXPECT_EQ(form.atai_KeyPress(character), stands) << int(character);
    EXPECT_EQ(form.atai_Insert(u"8:30分-"_s), u"830-"_s);
}

TEST_F(WorkTypes, AListFollowsItsCellOutOfSightAndBack) {
    constexpr int width = 20'000, height = 6 * 270;
    form.Form_Load();
    form.hyou_Click({1, band_col::category_name});
    for (const auto& [first_row, visible] : {std::pair(5, false), {1, true}}) {
        form.hyou_Scroll(first_row, 1, width, height);
        EXPECT_EQ(form.atai_com[0].visible, visible) << first_row;
    }
    form.atai_com_Click(0, 1);
    EXPECT_EQ(form.hyou(1, band_col::category), u"2"_s);
}

TEST_F(WorkTypes, WhereThereIsNoTypeOrNoDayAClickChangesNothing) {
    add_band(0, u"零"_s, 1, 1, 830, 1715);
    add_band(7, u"普通"_s, 1, 1, 900, 1800);
    form.Form_Load();
    form.hyoulist_Click(2);
    for (const int row : {1, 0, 99}) // a type of number 0 is none
        form.hyoulist_Click(row);
    EXPECT_EQ(form.kinjino, u"7"_s);
    for (const int day : {-1, 10})
        form.hyou_youbi_Click(day);
    EXPECT_EQ(form.hyou_youbi_tag, 1);
    form.botan_Click(2);
    form.kinjino.clear(); // a new type is in hand
    form.undo_deletion();
    EXPECT_EQ(stored().size(), 2);
    EXPECT_TRUE(form.mark_unregistered());
}

TEST_F(WorkTypes, TheListsWriteNameAndNumberAndBackspaceTakesThemBack) {
    form.Form_Load();
    form.atai_com_Click(0, 1);
    EXPECT_FALSE(form.atai_com_KeyPress(0, key::backspace));
    EXPECT_EQ(form.hyou(1, band_col::category), u""_s) << "a choice counts only while the list is shown";
    choose(2, band_col::category_name, 1);
    choose(2, band_col::mode_name, 1);
    EXPECT_EQ(grid(2, band_col::category_name, 4), u"残業|2|この時間が勤務開始|1"_s);
    form.hyou_Click({3, band_col::category_name});
    EXPECT_EQ(form.atai_com[0].index, 1) << "a cell without a number leaves the selection as it is";
    form.hyou_Click({2, band_col::category_name});
    for (const int item : {-1, 2})
        form.atai_com_Click(0, item);
    EXPECT_FALSE(form.atai_com_KeyPress(0, u'1'));
    EXPECT_EQ(grid(2, band_col::category_name, 2), u"残業|2"_s);
    EXPECT_TRUE(form.atai_com_KeyPress(0, key::backspace));
    EXPECT_EQ(grid(2, band_col::category_name, 2), u"|"_s);
}

TEST_F(WorkTypes, ATypeIsShownFromMondayWhateverDayWasChosen) {
    rovdata().exec("with recursive n(i) as (select 3 union all select i + 1 from n where i < 150)"
                   " insert into kinsyu select i, '種類' || i from n");
    add_band(7, u" 普通 "_s, 1, 2, 0, 1715, 1, 1, 600, 45);
    add_band(7, u" 普通 "_s, 0, 1, 900, 2530, 150);
    form.Form_Load();
    form.hyou_youbi_Click(6);
    form.hyoulist_Click(1);
    EXPECT_EQ(form.kinjino, u"7"_s);
    EXPECT_EQ(form.hyou_youbi_tag, 1);
    const QString monday = u"0:00|17:15|通常|1|この時間が勤務開始|1|6:00|0:45||||"_s;
    EXPECT_EQ(grid(2, band_col::start, 12), monday) << "a start of 0 is midnight, a rule of 0 is none";
    form.hyou_youbi_Click(0);
    EXPECT_EQ(grid(1, band_col::start, 3), u"9:00|25:30|種類150"_s);
    form.hyou_youbi_Click(monday_to_friday);
    EXPECT_EQ(grid(2, band_col::start, 12), monday);
    EXPECT_TRUE(host.shown.empty()) << "nothing is asked before the set is left";
}

TEST_F(WorkTypes, EachDaySetReachesItsDaysAndANoLosesWhatWasTyped) {
    const QString to_saturday = u"月曜～土曜まで、この設定で変更しますか？"_s;
    const std::tuple<int, QString, Answer, QString> sets[] = {
        {every_day, u"毎日、この設定で変更しますか？"_s, Answer::Yes, u"1111111"_s},
        {monday_to_saturday, to_saturday, Answer::Yes, u"0111111"_s},
        {monday_to_saturday, to_saturday, Answer::No, u"0000000"_s},
        {monday_to_friday, u"月曜～金曜まで、この設定で変更しますか？"_s, Answer::Yes, u"0111110"_s}};
    for (const auto& [column, question, answer, days] : sets) {
        mst_kinjikan fresh(session);
        fresh.Form_Load();
        fresh.hyou_youbi_Click(column);
        fresh.hyou_Click({1, band_col::start});
        fresh.atai_Change(u"830"_s);
        host.answers = {answer};
        fresh.hyou_youbi_Click(2);
        EXPECT_EQ(host.shown.back().text, question);
        QString filled;
        for (int day = 0; day < weekday_count; ++day) {
            fresh.hyou_youbi_Click(day);
            filled += fresh.hyou(1, band_col::start).isEmpty() ? u'0' : u'1';
        }
        EXPECT_EQ(filled, days);
    }
}

TEST_F(WorkTypes, ARuleCopiedOntoADaySetIsSavedAsItsHourUnlessTheDayWasShown) {
    open_a_named_day(every_day);
    enter(1, band_col::first_rule, u"130"_s);
    enter(1, band_col::first_rule + 1, u"45"_s);
    form.hyou_youbi_Click(1);
    EXPECT_EQ(form.hyou(1, band_col::first_rule), u"1:30"_s) << "it looks right";
    form.botan_Click(1);
    EXPECT_EQ(stored_rules(),
        QStringList({u"0|1|0"_s, u"1|130|45"_s, u"2|1|0"_s, u"3|1|0"_s, u"4|1|0"_s, u"5|1|0"_s, u"6|1|0"_s}));

    form.hyou_youbi_Click(5);
    form.hyou_youbi_Click(1);
    form.kinjino = u"1"_s;
    form.botan_Click(1);
    EXPECT_EQ(stored_rules()[5], u"5|130|45"_s) << "a day shown and left is right";
}

TEST_F(WorkTypes, ARuleThatReachedOnlyTheDayInViewIsToldAndGivenToEveryDayOfItsSet) {
    open_a_named_day(monday_to_friday);
    form.kinjino = u"1"_s;
    enter(1, band_col::first_rule, u"130"_s);
    enter(1, band_col::first_rule + 1, u"45"_s);
    form.hyou_youbi_Click(2);
    EXPECT_EQ(form.rules_line(), u"まとめて入れた休憩は、このままでは 月・水・木・金 で 1:30 が 0:01 と登録されます"_s);
    EXPECT_EQ(dotted(), u"月火水木金"_s);
    form.botan_Click(1);
    EXPECT_EQ(dotted(), QString());
    form.give_rules_to_all_days();
    EXPECT_EQ(form.rules_line(), QString());
    EXPECT_EQ(dotted(), u"月水木金"_s) << "not in the table yet";
    form.hyou_youbi_Click(monday_to_friday);
    for (const QString& cut : {u"1|1|0"_s, u"1|130|45"_s}) {
        form.botan_Click(1);
        EXPECT_EQ(stored_rules()[0], cut);
        form.give_rules_to_all_days();
        EXPECT_EQ(form.hyou_youbi_tag, 1) << "the set in view would cut them again";
    }
    EXPECT_EQ(stored_rules().filter(u"|130|45"_s).size(), 5);

    form.hyou_youbi_Click(every_day);
    enter(1, band_col::first_rule, u"200"_s);
    form.give_rules_to_all_days();
    EXPECT_EQ(host.shown.back().text, u"毎日、この設定で変更しますか？"_s)
        << "what is typed over the set is asked about";
    form.botan_Click(1);
    EXPECT_EQ(stored_rules().filter(u"|200|45"_s).size(), 7);
}

TEST_F(WorkTypes, WhatIsTypedIsDottedUntilItIsRegisteredAndAChoiceNotMadeIsSaid) {
    add_band(7, u"普通"_s, 1, 1, 830, 1715, 99);
    open_the_first_type();
    EXPECT_EQ(dotted(), QString());
    EXPECT_EQ(form.hyou.Look(1, band_col::category_name).stand_in, u"（削除済み）"_s);
    enter(2, band_col::start, u"1715"_s);
    choose(3, band_col::category_name, 0);
    form.hyou_Click({1, band_col::start});
    EXPECT_EQ(dotted(), u"月"_s);
    EXPECT_EQ(form.hyou.Look(2, band_col::mode_name).stand_in, u"（未設定）"_s);
    EXPECT_EQ(form.hyou.Look(4, band_col::mode_name).stand_in, QString());
    form.botan_Click(1);
    EXPECT_EQ(dotted(), u"月"_s);
    EXPECT_FALSE(form.hyou.Look(2, band_col::row_number).dot);
    EXPECT_TRUE(form.hyou.Look(3, band_col::row_number).dot) << "a band without a time is dropped";
    form.botan_Click(2);
    EXPECT_TRUE(form.mark_unregistered());
    EXPECT_TRUE(form.hyou.Look(2, band_col::row_number).dot && form.hyoulist.Look(1, 0).dot);
    form.undo_deletion();
    form.mark_unregistered();
    EXPECT_FALSE(form.hyou.Look(2, band_col::row_number).dot);
}

TEST_F(WorkTypes, TheDaySetQuestionComesBeforeTheConfirmationAndANoToThatWritesNothing) {
    open_a_named_day();
    host.answers = {Answer::No};
    form.botan_Click(1);
    EXPECT_EQ(counter(u"勤務時間"_s), 0);
    form.hyou_youbi_Click(2);
    form.hyou_youbi_Click(1);
    EXPECT_EQ(form.hyou(1, band_col::end), u"17:15"_s) << "the grid stays in hand";

    open_a_named_day(every_day);
    host.answers = {Answer::No, Answer::Yes};
    form.botan_Click(1);
    ASSERT_EQ(host.shown.size(), 3u);
    EXPECT_EQ(host.shown[1].title, u"変更処理"_s);
    EXPECT_EQ(host.shown[2].text, u"普通を登録します"_s);
    EXPECT_EQ(stored(), QStringList()) << "the copy was refused, the registration went on";
}

TEST_F(WorkTypes, WithoutANameNothingIsDrawnAndADeleteOfANewTypeWastesANumber) {
    form.Form_Load();
    form.kinjikanmei_Change(u"   "_s);
    form.botan_Click(1);
    form.botan_Click(2); // ends in silence
    EXPECT_EQ(counter(u"勤務時間"_s), 0);
    form.kinjikanmei_Change(u"普通"_s);
    form.botan_Click(2);
    EXPECT_EQ(host.shown, (std::vector<Shown>{{u"勤務時間名を入力してください"_s, u"名称未入力"_s, Buttons::Ok},
                              {u"普通を削除します"_s, u"削除"_s, Buttons::YesNo}}));
    EXPECT_EQ(counter(u"勤務時間"_s), 1);
}

TEST_F(WorkTypes, OnlyBandsWithATimeAreWrittenAndGapsStay) {
    add_category(top, u"末"_s);
    form.Form_Load();
    form.kinjikanmei_Change(odd_name);
    enter(1, band_col::end, u"1715"_s);
    choose(2, band_col::category_name, 0);
    enter(3, band_col::first_rule, u"600"_s);
    enter_band(10, u"1715"_s, u"2000"_s);
    choose(10, band_col::category_name, 2);
    choose(10, band_col::mode_name, 1);
    form.botan_Click(1);
    EXPECT_EQ(stored(), QStringList({u"1|"_s + odd_name + u"|1|1|0|1715|0|0"_s,
                            u"1|"_s + odd_name + u"|1|10|1715|2000|2147483647|1"_s}));
}

TEST_F(WorkTypes, RegisteringTwiceMakesTwoTypesAndEachFormOfANameIsListed) {
    open_a_named_day();
    form.botan_Click(1);
    form.botan_Click(1);
    EXPECT_EQ(stored().size(), 2);
    EXPECT_EQ(form.kinjino, u""_s);
    EXPECT_EQ(form.hyoulist.Rows(), 1) << "the list follows the next opening";
    add_band(2, u"普通"_s, 2, 1, 830, 1715);
    add_band(2, u"普通２"_s, 3, 1, 830, 1715);
    form.Form_Load();
    EXPECT_EQ(column(form.hyoulist, 0), QStringList({u"普通"_s, u"普通"_s, u"普通２"_s}));
    EXPECT_EQ(column(form.hyoulist, 1), QStringList({u"1"_s, u"2"_s, u"2"_s}));
}

TEST_F(WorkTypes, ASaveReplacesTheTypeWholeAndBringsADeletedOneBackUnderItsNumber) {
    add_band(top, u"普通"_s, 1, 1, 830, 1715);
    rovdata().prepare("insert into syainkinmu values (3, ?)").bind(top).run();
    open_the_first_type();
    form.botan_Click(2);
    EXPECT_EQ(stored(), QStringList());
    EXPECT_EQ(rows(rovdata(), "select 勤務タイプ from syainkinmu"), QStringList({u"2147483647"_s}));
    add_band(top, u"普通２"_s, 1, 5, 900, 1000); // on another PC meanwhile
    form.botan_Click(1);
    EXPECT_EQ(stored(), QStringList({u"2147483647|普通|1|1|830|1715|1|0"_s}));
}

TEST_F(WorkTypes, ACategoryThatIsGoneOrStandsBehindOneWithoutANameKeepsItsNumber) {
    add_category(3, u""_s);
    add_category(4, u"深夜"_s);
    add_band(7, u"普通"_s, 1, 1, 2200, 2400, 4);
    add_band(7, u"普通"_s, 1, 2, 830, 1715, 99);
    open_the_first_type();
    EXPECT_EQ(grid(1, band_col::category_name, 2) + grid(2, band_col::category_name, 2), u"|4|99"_s);
    form.botan_Click(1);
    EXPECT_EQ(stored(), QStringList({u"7|普通|1|1|2200|2400|4|0"_s, u"7|普通|1|2|830|1715|99|0"_s}));
}

TEST_F(WorkTypes, RowsOfAnotherHandAreToldBeforeTheyGoAndATypeIsListedOnce) {
    add_band(7, u"普通"_s, 1, 1, 700, 800);
    add_band(7, u"普通"_s, 1, 1, 830, 1715);
    add_band(7, u"普通"_s, 2, 12, 900, 1000);
    add_band(7, u"普通"_s, 9, 1, 1100, 1200);
    open_the_first_type();
    EXPECT_EQ(form.notelab, u"この画面で扱えない行があります（曜日 1 連番 1、曜日 2 連番 12、曜日 9 連番 1）。"
                            u"登録すると消えます。"_s);
    EXPECT_EQ(form.hyou(1, band_col::start), u"8:30"_s);
    host.answers = {Answer::No, Answer::Yes};
    form.kinjikanmei_Change(u"日勤"_s);
    form.botan_Click(1);
    EXPECT_EQ(stored().size(), 4);
    EXPECT_NE(form.notelab, QString()) << "not registered yet";
    form.botan_Click(1);
    EXPECT_EQ(stored(), QStringList({u"7|日勤|1|1|830|1715|1|0"_s}));
    EXPECT_EQ(form.notelab, QString());
    form.Form_Load();
    EXPECT_EQ(column(form.hyoulist, 0), QStringList({u"日勤"_s}));
    for (const int weekday : {-1, 7, 8, 9})
        add_band(7, u"日勤"_s, weekday, 1, 1100, 1200);
    form.hyoulist_Click(1);
    EXPECT_TRUE(form.notelab.contains(u"曜日 8 連番 1、ほか 1 行）"_s)) << form.notelab.toStdString();
}

TEST_F(WorkTypes, AFailedSaveLeavesTheOldRows) {
    add_band(7, u"普通"_s, 1, 1, 830, 1715);
    rovdata().exec(
        "create trigger broken before insert on kintype when new.連番 = 2 begin select raise(abort, 'x'); end");
    open_the_first_type();
    enter_band(1, u"900"_s, u"1800"_s);
    enter_band(2, u"1800"_s, u"2000"_s);
    EXPECT_THROW(form.botan_Click(1), store::Error);
    EXPECT_EQ(stored(), QStringList({u"7|普通|1|1|830|1715|1|0"_s}));
}

TEST_F(WorkTypes, ATypeThatCantBeReadLeavesTheOneInHand) {
    add_band(7, u"普通"_s, 1, 1, 830, 1715);
    add_band(8, u"遅出"_s, 1, 1, 1000, 1900);
    open_the_first_type();
    enter(1, band_col::start, u"900"_s);
    fails_without_rovdata([this] { form.hyoulist_Click(2); });
    EXPECT_EQ(form.msglab, u""_s);
    form.botan_Click(1);
    EXPECT_EQ(stored(), QStringList({u"7|普通|1|1|900|1715|1|0"_s, u"8|遅出|1|1|1000|1900|1|0"_s}));
}

TEST_F(WorkTypes, EachStepTellsHowItStandsAndTakesNoInput) {
    add_band(7, u"普通"_s, 1, 1, 830, 1715);
    QStringList told;
    host.on_yield = [&] {
        told << form.msglab;
        EXPECT_TRUE(form.busy);
        form.botan_Click(1);
        form.hyou_youbi_Click(3);
        form.hyou_Click({1, band_col::start});
        form.hyoulist_Click(1);
        form.give_rules_to_all_days();
        form.undo_deletion();
    };
    open_the_first_type();
    form.botan_Click(1);
    EXPECT_EQ(stored().size(), 1);
    EXPECT_EQ(form.hyou_youbi_tag, 1);
    EXPECT_FALSE(form.atai.active);
    form.botan_Click(2);
    EXPECT_EQ(told, QStringList({u"抽出中"_s, u"抽出終了"_s, u"保存処理中"_s, u"保存処理終了"_s, u"削除処理中"_s,
                        u"削除処理終了"_s}));
}

TEST_F(WorkTypes, ThePictureFollowsWhatIsTypedInTheOpenCell) {
    form.Form_Load();
    enter_band(1, u"830"_s, u"1715"_s);
    choose(1, band_col::category_name, 1);
    enter(1, band_col::end, u"900"_s);
    const common::DayPicture picture = form.picture();
    ASSERT_EQ(picture.segments.size(), 1);
    EXPECT_EQ(picture.segments[0].span, (common::Span{minutes(510), minutes(540)}));
    EXPECT_EQ(picture.segments[0].colour, 1);
    EXPECT_EQ(form.hyou(1, band_col::end), u"17:15"_s);
}

} // namespace masters
