#include "entry/company.h"
#include "entry/draft_store.h"
#include "support/stored.h"

#include <gtest/gtest.h>

using namespace entry;

namespace {

class Drafts : public OpenForm {
protected:
    /// How the month stands, who has a dot, and how many months wait.
    QString standing() const {
        QString told = form->standing() + u' ';
        for (int r = 1; r < form->hyou_syain.Rows(); ++r)
            told += form->hyou_syain.Look(r, 0).dot ? u"●"_s : u"○"_s;
        return told + digits(drafts_waiting(company.tree.settings).months);
    }
};

} // namespace

TEST_F(Drafts, WhatWasTypedIsThereAgainAfterAKillAndOnComingBack) {
    const QString worked = u"8:30|18:00|1:00|8:30||出勤|1"_s, blank = u"||||||"_s;
    type_day(4, u"830"_s, u"1800"_s);
    type_at({5, col::remark}, u"直行"_s);
    form->hyou_Click({6, col::kind});
    form->kyucom_Click(1);
    EXPECT_EQ(standing(), u"未登録 3日 ●○1"_s);

    form->hyou_syain_Click(2);
    EXPECT_EQ(standing(), u" ●○1"_s);
    form->hyou_syain_Click(1);
    EXPECT_EQ(day(4), worked);
    form->ym_Click(1, 0);
    EXPECT_EQ(day(4), blank) << "a draft belongs to its month";

    open();
    EXPECT_EQ(day(4) + form->sheet.hyou(5, col::remark) + form->sheet.hyou(6, col::kind), worked + u"直行有休"_s);
    EXPECT_EQ(standing(), u"未登録 3日 ●○1"_s);
    form->give_up_draft();
    EXPECT_EQ(day(4), blank);
    EXPECT_EQ(standing(), u" ○○0"_s);
}

TEST_F(Drafts, ABreakTypedByHandStandsAndADayNotYetCalculatedIsCalculated) {
    type_day(4, u"830"_s, u"1800"_s);
    type_at({4, col::break_time}, u"15"_s);
    type_at({7, col::clock_in}, u"830"_s);
    type(*form, u"1730"_s);
    form->atai_LostFocus();
    EXPECT_EQ(form->sheet.mark(7), u"2"_s);
    open();
    EXPECT_EQ(day(4), u"8:30|18:00|0:15|9:15||出勤|1"_s);
    EXPECT_EQ(day(7), u"8:30|17:30|1:00|8:00||出勤|1"_s);
}

TEST_F(Drafts, SavingEndsADraftWhenItsRowsAreInTheTables) {
    type_day(4, u"830"_s, u"1800"_s);
    form->botan_Click(1);
    EXPECT_EQ(form->standing(), u"反映待ち "_s + company.host.clock.time().toString(u"H:mm"));
    EXPECT_TRUE(form->days_on_their_way());
    type_day(5, u"900"_s, u"1730"_s);
    EXPECT_EQ(form->standing(), u"未登録 1日"_s) << "typed after the save";
    company.apply();
    EXPECT_FALSE(form->days_on_their_way());
    EXPECT_EQ(form->standing(), u"未登録 1日"_s);
    form->botan_Click(1);
    company.apply();
    EXPECT_FALSE(form->days_on_their_way());
    EXPECT_EQ(standing(), u"登録しました "_s + company.host.clock.time().toString(u"H:mm") + u" ○○0"_s);
}

TEST_F(Drafts, APostedDayThatTheTablesNeverGotIsADraftAgain) {
    type_day(4, u"830"_s, u"1800"_s);
    form->botan_Click(1);
    company.exec("delete from rovmei");
    company.exchange().exec("delete from jyusin");
    open();
    EXPECT_EQ(form->standing(), u"未登録 1日"_s);
    EXPECT_EQ(form->sheet.hyou(4, col::clock_out), u"18:00"_s);
    form->botan_Click(1);
    company.apply();
    open();
    EXPECT_EQ(standing(), u" ○○0"_s) << "it arrived while the program was away";
}

TEST_F(Drafts, DaysThatAnotherChangedMeanwhileAreAskedOneByOneAndTheOthersAreLaid) {
    const auto clock_ins = [this] {
        QStringList cells;
        for (int r = 4; r <= 7; ++r)
            cells << form->sheet.hyou(r, col::clock_in);
        return cells.join(u' ');
    };
    for (const int r : {4, 5, 6})
        type_day(r, u"830"_s, u"1800"_s);
    company.exec("insert into rovmei values (1, 20041005, 1000, 1900, 100, 800, ''),"
                 " (1, 20041006, 1000, 2000, 100, 900, ''), (1, 20041007, 1000, 2100, 100, 1000, '')");
    open();
    EXPECT_EQ(clock_ins(), u"8:30 10:00 10:00 10:00"_s) << "until it is decided a day stands as it was read";
    ASSERT_EQ(form->clashes().size(), 2) << "nobody else changed the first day, nobody typed the last one here";
    EXPECT_EQ(form->clashes()[0].draft.typed.clock_in + form->clashes()[0].stored.clock_in, u"8:3010:00"_s);
    open();
    ASSERT_EQ(form->clashes().size(), 2) << "an undecided day isn't lost";
    form->decide(0, MonthDraft::Choice::Typed);
    form->decide(0, MonthDraft::Choice::Stored);
    EXPECT_EQ(clock_ins(), u"8:30 8:30 10:00 10:00"_s);
    open();
    EXPECT_TRUE(form->clashes().isEmpty());
    EXPECT_EQ(clock_ins(), u"8:30 8:30 10:00 10:00"_s);
}

TEST_F(Drafts, ACountTypedByHandIsKeptUntilACalculationTakesItAway) {
    type_day(4, u"830"_s, u"1800"_s);
    form->hyou_day_Click(1);
    form->hyou_day_KeyDown(key::del);
    form->hyou_day_KeyPress(u'7');
    open();
    EXPECT_EQ(form->sheet.hyou_day(strip::count, 1), u"7"_s);
    type_day(5, u"830"_s, u"1800"_s);
    open();
    EXPECT_EQ(form->sheet.hyou_day(strip::count, 1), u"29"_s);
}

TEST_F(Drafts, ADamagedFileIsKeptBesideAndTold) {
    type_day(4, u"830"_s, u"1800"_s);
    const QString path = store::drafts_path(company.tree.settings);
    support::put_bytes(path, support::bytes_of(path).replace(4096, 8192, QByteArray(8192, 'x')));
    open();
    EXPECT_EQ(company.host.shown.size(), 1u);
    EXPECT_EQ(form->standing(), u""_s);
    type_day(4, u"830"_s, u"1800"_s);
    EXPECT_EQ(standing(), u"未登録 1日 ●○1"_s);
}

TEST_F(Drafts, TheLookBeforeSavingIsSilentForAMonthThatIsntToBeAskedAboutAndForKindsLeftOut) {
    form->hyou_Click({4, col::clock_in});
    type(*form, u"830"_s);
    ASSERT_EQ(form->look_before_saving().size(), 2) << "not calculated, and no clock-out";
    form->calculate_all();
    ASSERT_EQ(form->look_before_saving().size(), 1) << "no clock-out";
    form->leave_out({FindingKind::OneClockTime});
    EXPECT_TRUE(form->look_before_saving().isEmpty());
    form->leave_out({});
    EXPECT_TRUE(form->kinds_left_out().isEmpty());
    EXPECT_FALSE(form->look_before_saving().isEmpty());
    form->ask_no_more_for_month();
    EXPECT_TRUE(form->look_before_saving().isEmpty());
    EXPECT_TRUE(company.posted().isEmpty());
}

TEST_F(Drafts, TheKeyboardGoesFromEmployeeToEmployeeAndToTheKindsAndBack) {
    form->step_employee(-1);
    EXPECT_EQ(form->editors.notice->text, u"最初の社員です"_s);
    form->step_employee(1);
    EXPECT_EQ(form->syalab, u"3:田中"_s);
    EXPECT_TRUE(form->editors.atai.visible && form->editors.atai.cell == (base::Cell{1, col::clock_in}));
    form->step_employee(-1);
    form->hyou_Click({6, col::clock_in});
    form->go_to_kinds();
    EXPECT_EQ(form->editors.notice->text, u"1 有休　2 公休　3 出勤　4 休日出勤"_s);
    form->kyucom_Digit(1);
    EXPECT_TRUE(form->kyucom_KeyDown(key::enter));
    EXPECT_EQ(form->sheet.hyou(6, col::kind), u"有休"_s);
    EXPECT_EQ(form->editors.atai.cell, (base::Cell{7, col::clock_in}));

    const auto enter_on_last_day = [&] {
        form->hyou_Click({31, col::break_time});
        form->atai_KeyDown(key::enter);
    };
    enter_on_last_day();
    EXPECT_EQ(form->editors.atai.cell, (base::Cell{32, col::clock_in}));
    form->set_goes_on(true);
    open();
    enter_on_last_day();
    EXPECT_EQ(form->syalab, u"3:田中"_s);
}
