// The month of all employees over real tables: the picture, what is off in it, paper and file, and closing it.

#include "entry/company.h"
#include "overview/ent_itiran.h"
#include "platform/from_cp932.h"
#include "support/recording_shop.h"
#include "support/stored.h"

using namespace overview;
using namespace base;

namespace {

/// 山田 is typed by the form; 田中 has nothing. October 2004 begins on a Friday.
struct Overview : entry::OpenForm {
    Overview() {
        in_hand.month = 200410;
        type_day(4, u"830"_s, u"1800"_s);
        form->hyou_Click({5, entry::col::kind});
        form->kyucom_Click(1); // 有休
    }

    void save() {
        form->botan_Click(1);
        company.apply();
    }

    ent_itiran& look() {
        all.emplace(company.session, in_hand);
        all->Form_Load();
        all->look_to_the_end();
        return *all;
    }

    /// "number|days from one to another|sums|what is off" of the employees shown.
    QStringList picture(int from, int to) const {
        QStringList rows;
        for (int r = heading_rows; r < all->hyou.Rows(); ++r)
            rows << QStringList{all->hyou(r, column::number),
                entry::cells_from(all->hyou, r, column::first_day + from - 1, to - from + 1),
                entry::cells_from(all->hyou, r, column::worked, column::first_category + 2 - column::worked)}
                        .join(u" / "_s);
        return rows;
    }

    QString tip(int day) const { return all->hyou.Look(heading_rows, column::first_day + day - 1).tip; }
    bool dot(int day) const { return all->hyou.Look(heading_rows, column::first_day + day - 1).dot; }

    /// "day what" of all that is told.
    static QStringList said(const QList<Told>& told) {
        QStringList lines;
        for (const Told& of : told)
            lines << digits(of.row) + u' ' + of.what;
        return lines;
    }

    frame::MonthInHand in_hand;
    std::optional<ent_itiran> all;
};

} // namespace

TEST_F(Overview, ShowsTheTablesAndThisPcsDraftAndLeadsToTheDay) {
    save();
    type_at({6, entry::col::clock_in}, u"830"_s);
    form->hyou_Click({7, entry::col::remark});
    all.emplace(company.session, in_hand);
    all->Form_Load();
    EXPECT_EQ(
        picture(3, 6), (QStringList{u"20 / 公休|8:30|有休|公休 / 1|1||8:30|||9:00|0:30"_s, u"3 / ||| / |||||||"_s}))
        << "what the tables hold comes first";
    all->look_to_the_end();
    EXPECT_EQ(picture(3, 6),
        (QStringList{u"20 / 公休|8:30|有休|14:30 / 1|1||23:00|2||18:00|5:00"_s, u"3 / ||| / ||||未入力|||"_s}));
    EXPECT_EQ(tip(6), u"退社時間がありません\n未登録です"_s);
    EXPECT_TRUE(dot(6));
    EXPECT_FALSE(dot(4));

    all->hyou_Click({heading_rows, column::first_day + 5});
    ASSERT_TRUE(all->day_wanted);
    form->give_up_draft();
    form->hyou_syain_Click(2);
    form->ym_Click(1, 0);
    form->open_day(*all->day_wanted);
    EXPECT_EQ(form->syalab, u"20:山田:太郎"_s);
    EXPECT_EQ(form->sheet.month.month_key(), 200410);
    EXPECT_EQ(form->editors.atai.cell, (Cell{6, entry::col::clock_in}));

    all->set_only_off(true);
    EXPECT_EQ(picture(4, 4).size(), 2);
    EXPECT_TRUE(in_hand.only_off);
    look();
    EXPECT_EQ(picture(4, 4), QStringList{u"3 /  / ||||未入力|||"_s}) << "the draft was given up";
    all->step_month(1);
    EXPECT_EQ(all->month_text, u"2004年 11月"_s);
    EXPECT_EQ(picture(4, 4).size(), 2);
}

TEST_F(Overview, ComesOnPaperAndIntoAFile) {
    save();
    company.tables.設定書込(store::losystem, u"プリンター１"_s, u"PDF"_s);
    look();
    support::RecordingShop shop;
    all->print(shop);
    ASSERT_EQ(shop.jobs.size(), 1U);
    EXPECT_EQ(shop.jobs[0].job.orientation, reports::Orientation::Landscape);
    const QString page = shop.jobs[0].pages.at(0).texts.join(u'\n');
    for (const QString& text : {u"月間一覧  2004年 10月"_s, u"山田:太郎"_s, u"有休"_s, u"2004年10月05日印刷"_s})
        EXPECT_TRUE(page.contains(text)) << text.toStdString();

    const QString path = company.tree.folder.filePath(u"month.csv"_s);
    company.host.paths = {path};
    all->write_file();
    const QStringList lines = platform::from_cp932(support::bytes_of(path)).split(u"\r\n"_s);
    EXPECT_EQ(lines.value(0), u"月間一覧  2004年 10月"_s);
    EXPECT_TRUE(lines.value(4).startsWith(u"20,山田:太郎,公休,公休,公休,8:30,有休,公休,"_s))
        << lines.value(4).toStdString();
    EXPECT_TRUE(lines.value(4).endsWith(u",1,1,,8:30,,9:00,0:30"_s)) << lines.value(4).toStdString();
}

TEST_F(Overview, ClosesTheMonthWithItsSumsAndTellsWhatChangedSince) {
    form->botan_Click(1);
    look();
    all->close_month();
    EXPECT_FALSE(all->is_closed()) << "saved days wait";
    EXPECT_TRUE(company.host.shown.back().text.contains(u"まだ反映されていません"_s));

    company.apply();
    type_at({6, entry::col::clock_in}, u"830"_s);
    form->hyou_Click({7, entry::col::remark});
    look();
    EXPECT_EQ(said(all->against()),
        (QStringList{u"6 退社時間がありません"_s, u"6 未登録です"_s, u"32 何も入力されていません"_s}));
    all->close_month();
    EXPECT_TRUE(all->is_closed());
    all->look_to_the_end();
    EXPECT_EQ(said(all->changed()), QStringList());
    open();
    EXPECT_TRUE(form->is_closed());

    company.exec("update kintype set 開始時間 = 900 where 連番 = 1");
    EXPECT_EQ(said(look().changed()), QStringList{u"32 今の勤務タイプで計算し直すと 普通 9:00 → 8:30"_s});
    company.exec("update rovmei set 勤務時間 = 900 where 出社日 = 20041032");
    EXPECT_EQ(said(look().changed()).value(0), u"32 勤務時間 8:30 → 9:00"_s);
    EXPECT_TRUE(all->standing.contains(u"締め後に変更 2件"_s));

    company.host.answers = {platform::Answer::No};
    all->reopen_month();
    EXPECT_TRUE(all->is_closed());
    all->reopen_month();
    EXPECT_FALSE(all->is_closed());
    EXPECT_TRUE(all->closings().value(0).reopened);
}
