#include "common/closed_months.h"
#include "entry/company.h"

#include <gtest/gtest.h>

using namespace entry;

using ClosedMonth = OpenForm;

TEST_F(ClosedMonth, IsShownAndTakesNeitherKeysNorASaveUntilItIsOpenedAgain) {
    const base::Settings& settings = company.tree.settings;
    const int month = form->sheet.month.month_key();
    const common::Noted by{QDateTime({2004, 11, 1}, {9, 5}), u"受付"_s};
    const common::KeptSums sums{{u"勤務"_s, 510}};
    type_day(4, u"830"_s, u"1800"_s);
    EXPECT_FALSE(common::reopen_month(settings, month, by)) << "no month was ever closed";
    EXPECT_TRUE(common::kept_sums(settings, month).isEmpty());
    EXPECT_TRUE(common::close_month(settings, month, by, {{EmployeeKey(1), sums}}));
    EXPECT_FALSE(common::close_month(settings, month, by, {})) << "its sums stay";
    form->botan_Click(1);
    EXPECT_EQ(company.posted(), QStringList()) << "it was open when it was read";

    open();
    type_day(5, u"830"_s, u"1800"_s);
    form->fill(FillSource::DayAbove, RowRange{5, 5});
    EXPECT_EQ(form->atai_Insert(u"830"_s), u""_s);
    form->hyou_day_Click(0);
    const QString count = form->sheet.hyou_day(strip::count, 0);
    form->hyou_day_KeyPress('1');
    form->hyou_day_KeyDown(key::del);
    EXPECT_EQ(form->sheet.hyou_day(strip::count, 0), count);
    EXPECT_EQ(form->paste({{{{5, 2}, u"830"_s, u"8:30"_s, PasteCell::State::New, {}}}, {}}), 0);
    EXPECT_EQ(form->preview_paste(u"830"_s).refused, form->editors.notice->text);
    EXPECT_EQ(cells_from(form->sheet.hyou, 5, col::clock_in, 3), u"||"_s);
    form->kyucom_Click(1);
    EXPECT_EQ(form->editors.notice->text, u"2004年10月は締められています（2004/11/01 09:05 受付）"_s);
    EXPECT_EQ(form->standing(), u"締め済み　未登録 1日"_s);

    const common::Noted now = common::noted_now(company.host.clock);
    EXPECT_TRUE(common::reopen_month(settings, month, now));
    EXPECT_FALSE(common::reopen_month(settings, month, by));
    const common::Closing closing = common::closings_of(settings, month).value(0);
    EXPECT_EQ(closing.closed.pc, u"受付"_s);
    EXPECT_EQ(closing.reopened->time, now.time);
    EXPECT_EQ(closing.reopened->pc, now.pc);
    EXPECT_EQ(common::kept_sums(settings, month).value(EmployeeKey(1)), sums);
    open();
    form->botan_Click(1);
    EXPECT_FALSE(company.posted().isEmpty());
}
