#include "setup/mst_kihon.h"

#include "base/keys.h"
#include "setup/company.h"
#include "setup/own_holidays.h"
#include "store/error.h"

namespace setup {

struct Loaded : mst_kihon {
    explicit Loaded(frame::Session& session) : mst_kihon(session) { Form_Load(); }
    void save() { botan_Click(1); }
};

using BasicSettings = Company;

TEST_F(BasicSettings, ShowsWhatIsStored) {
    set_shared(u"和西暦表示"_s, u"1"_s);
    set_shared(u"特別ソフト"_s, u"3"_s);
    set_of_this_pc(u"プリンター１"_s, u" PDF "_s);
    set_of_this_pc(u"プリンター１Ｙ"_s, u"-2mm"_s);
    set_of_this_pc(u"ネット情報"_s, u"1"_s);
    const Loaded form(session);
    EXPECT_EQ(form.waseireki, 1);
    EXPECT_EQ(tree.settings.special_soft, 3) << "refreshed here";
    EXPECT_EQ(form.prconb.text(), u"PDF"_s);
    EXPECT_EQ(form.atai[mst_kihon::offset_y], u"-2"_s);
    EXPECT_EQ(form.atai[mst_kihon::offset_x], u"0"_s);
    EXPECT_TRUE(form.ck);
}

TEST_F(BasicSettings, TheFirstDayIsReadFromThisPcAndStoredForAll) {
    set_shared(u"月初日付"_s, u"21"_s);
    Loaded form(session);
    EXPECT_EQ(form.atai[mst_kihon::first_day], u"1"_s);
    EXPECT_TRUE(form.first_day_notice().contains(u"21日"_s))
        << "what a save would replace, whatever this run began with";
    form.save();
    EXPECT_EQ(shared(u"月初日付"_s), u"1"_s);
    EXPECT_EQ(of_this_pc(u"月初日付"_s), QString());
    EXPECT_TRUE(form.first_day_notice().contains(u"21日から1日"_s)) << "what the save replaced";
    form.save();
    EXPECT_EQ(form.first_day_notice(), QString());

    form.atai_Change(mst_kihon::first_day, u"15"_s);
    form.save();
    EXPECT_TRUE(form.first_day_notice().contains(u"15日"_s));
    EXPECT_EQ(tree.settings.month_start_day, 1) << "until the next start";
    Loaded again(session);
    EXPECT_TRUE(again.first_day_notice().contains(u"15日"_s)) << "the box says 1 once more";
    again.atai_Change(mst_kihon::first_day, u"15"_s);
    EXPECT_TRUE(again.first_day_notice().contains(u"いまは1日"_s)) << "nothing would be lost";
    set_shared(u"月初日付"_s, u"20"_s);
    again.atai_Change(mst_kihon::offset_y, u"1"_s);
    EXPECT_TRUE(again.first_day_notice().contains(u"いまの月初日付は20日"_s)) << "before it is lost";
    set_shared(u"月初日付"_s, u"19"_s);
    again.waseireki_Click(0);
    EXPECT_TRUE(again.first_day_notice().contains(u"いまの月初日付は19日"_s)) << "whatever is clicked";
    set_shared(u"月初日付"_s, u"20"_s);
    again.ck_Click(false);
    EXPECT_TRUE(again.first_day_notice().contains(u"いまの月初日付は20日"_s));
    again.save();
    EXPECT_TRUE(again.first_day_notice().contains(u"20日から15日"_s)) << "another PC stored 20 meanwhile";

    set_of_this_pc(u"月初日付"_s, u"16"_s);
    EXPECT_EQ(Loaded(session).atai[mst_kihon::first_day], u"16"_s);
    for (const auto& [typed, stored] :
        {std::pair(u"0"_s, u"1"_s), {u"32"_s, u"1"_s}, {u"31"_s, u"31"_s}, {u"-5"_s, u"1"_s}, {u"1日0"_s, u"10"_s}}) {
        form.atai_Change(mst_kihon::first_day, typed);
        EXPECT_EQ(form.notice.has_value(), typed != stored);
        form.save();
        EXPECT_EQ(shared(u"月初日付"_s), stored) << typed.toStdString();
    }
    form.atai_Change(mst_kihon::first_day, u"40"_s);
    form.save();
    EXPECT_EQ(form.notice->text, u"40 は 1 日として登録します（1～31 を入力します）"_s);
}

TEST_F(BasicSettings, ASaveWritesEachSettingUnderItsKeyAndTheDisplayChangesAtOnce) {
    set_shared(u"特別ソフト"_s, u"1"_s);
    Loaded form(session);
    form.waseireki_Click(1);
    form.ck_Click(true);
    form.prconb_Click(1);
    form.atai_Change(mst_kihon::offset_y, u"-3"_s);
    form.atai_Change(mst_kihon::offset_x, u"4 mm"_s);
    form.save();
    EXPECT_EQ(form.msglab, u"登録終了"_s);
    EXPECT_EQ(tree.settings.date_style, 1);
    for (const auto& [key, value] :
        {std::pair(u"和西暦表示"_s, u"1"_s), {u"特別ソフト"_s, u"1"_s}, {u"月初日付"_s, u"1"_s}})
        EXPECT_EQ(shared(key), value) << key.toStdString();
    for (const auto& [key, value] : {std::pair(u"プリンター１"_s, u"PDF"_s), {u"プリンター１Ｙ"_s, u"-3"_s},
             {u"プリンター１Ｘ"_s, u"4"_s}, {u"ネット情報"_s, u"1"_s}, {u"システム番号"_s, u""_s}})
        EXPECT_EQ(of_this_pc(key), value) << key.toStdString();
    form.waseireki_Click(0);
    form.ck_Click(false);
    form.save();
    EXPECT_EQ(shared(u"和西暦表示"_s) + of_this_pc(u"ネット情報"_s), u"00"_s);
    EXPECT_EQ(tree.settings.date_style, 0);
}

TEST_F(BasicSettings, APrinterThatIsGoneStaysStoredAndSelectsNothingAndLeavingDiscardsWhatWasTyped) {
    set_of_this_pc(u"プリンター１"_s, u"Old printer"_s);
    Loaded form(session);
    EXPECT_EQ(form.prconb.index, -1);
    form.botan_Click(2);
    EXPECT_EQ(form.msglab, QString()) << "button 1 alone saves";
    form.save();
    EXPECT_EQ(of_this_pc(u"プリンター１"_s), u"Old printer"_s);
    form.atai_Change(mst_kihon::offset_y, u"9"_s);
    form.waseireki_Click(1);
    form.botan_Click(0);
    EXPECT_TRUE(form.close_wanted);
    EXPECT_EQ(of_this_pc(u"プリンター１Ｙ"_s), u"0"_s);
    EXPECT_EQ(tree.settings.date_style, 0);
}

TEST_F(BasicSettings, EnterLeadsFromOneOffsetToTheOther) {
    Loaded form(session);
    form.focus.reset();
    EXPECT_FALSE(form.atai_KeyDown(mst_kihon::first_day, key::enter));
    EXPECT_FALSE(form.atai_KeyDown(mst_kihon::offset_x, key::enter));
    EXPECT_FALSE(form.atai_KeyDown(mst_kihon::offset_y, key::right));
    EXPECT_EQ(form.focus, std::nullopt);
    EXPECT_TRUE(form.atai_KeyDown(mst_kihon::offset_y, key::enter));
    EXPECT_EQ(form.focus, (frame::Focus{frame::Control::Atai, mst_kihon::offset_x}));
}

TEST_F(BasicSettings, ALineOfHolidaysIsADayOrARunAndWhatIsNoneIsNotUnderstood) {
    struct Case {
        QString typed, read; ///< as it would be shown again
    };
    for (const Case& c : {Case{u"5/1"_s, u"5/1 休業日\n"_s}, {u"2/29　閏日"_s, u"2/29 閏日\n"_s},
             {u"2026/9/30~2026/10/1 棚卸\n2026/10/2 棚卸"_s, u"2026/9/30～2026/10/2 棚卸\n"_s},
             {u"8/13〜8/14\n8/15 盆\n8/17 盆"_s, u"8/13～8/14 休業日\n8/15 盆\n8/17 盆\n"_s},
             {u"8/13 盆\n8/13 夏休"_s, u"8/13 夏休\n"_s}, {u"5/1-5/31 改装"_s, u"5/1～5/31 改装\n"_s},
             {u"5/2-6/1 改装\n6/2 改装"_s, u"5/2～6/1 改装\n6/2 改装\n"_s}, // longer than a line may be
             {u"5/1-6/1"_s, {}}, {u"2026/3/3~2026/3/1"_s, {}}, {u"1/1~2026/1/3"_s, {}}, {u"2/30"_s, {}}, {u"5"_s, {}},
             {u"2026/1/1/1"_s, {}}, {u"5/1~5"_s, {}}, {u"正月 1/1"_s, {}}, {u"5/1休み"_s, {}}}) {
        const TypedHolidays typed = read_holidays(c.typed, tree.settings, host.clock.date());
        EXPECT_EQ(holiday_lines(typed.days, tree.settings, host.clock.date()), c.read) << c.typed.toStdString();
        EXPECT_EQ(typed.not_understood, c.read.isEmpty() ? QStringList(c.typed) : QStringList());
    }
}

TEST_F(BasicSettings, TheCompanysOwnHolidaysAreLinesThatAreReadBackAsTheyAreMeant) {
    own_holidays form(session);
    form.lines = u"１２/２９ ～ 1/3 年末年始\n\n2026/9/30 棚卸, 全社\n8/13-8/14\n2026/9/31 ない日\n5/1～7/1 長すぎ"_s;
    EXPECT_FALSE(form.register_Click());
    EXPECT_EQ(form.msglab, u"読み取れない行があります。「2026/9/31 ない日」「5/1～7/1 長すぎ」"_s);
    EXPECT_TRUE(tree.settings.own_holidays.isEmpty()) << "nothing of it is stored";
    form.lines.truncate(form.lines.indexOf(u"2026/9/31"_s));
    EXPECT_TRUE(form.register_Click());
    EXPECT_EQ(tree.settings.own_holidays.value(103), u"年末年始"_s);
    rovdata().exec("insert into rov_kihon values ('会社休日x', 'x'), ('会社休日0103', 'y')"); // of no day's key
    form.Form_Load();
    EXPECT_TRUE(form.may_leave() && host.shown.empty()) << "nothing is typed";
    EXPECT_EQ(form.lines, u"1/1～1/3 年末年始\n8/13～8/14 休業日\n12/29～12/31 年末年始\n2026/9/30 棚卸, 全社\n"_s);
    form.lines = u"2026/9/30 棚卸"_s;
    host.answers = {platform::Answer::No};
    EXPECT_FALSE(form.may_leave()) << "the person is asked, and stays";
    EXPECT_TRUE(form.may_leave()) << "or leaves";
    form.register_Click();
    EXPECT_EQ(rows("select 項目名, データ from rov_kihon where 項目名 like '会社休日%' order by 1"),
        QStringList({u"会社休日0103|y"_s, u"会社休日20260930|棚卸"_s, u"会社休日x|x"_s}));
}

} // namespace setup
