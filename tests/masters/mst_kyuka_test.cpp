#include "masters/mst_kyuka.h"

#include "base/keys.h"
#include "masters/company.h"

namespace masters {

class DayKinds : public Company {
protected:
    mst_kyuka form{session};

    QStringList stored() { return rows(rovdata(), "select * from kyutype order by システム番号"); }

    QStringList listed() const {
        QStringList lines;
        for (int row = 1; row < form.hyou.Rows(); ++row)
            lines << form.hyou(row, 0) + u'|' + form.hyou(row, 1) + u'|' + form.hyou(row, 2);
        return lines;
    }

    void name(const QString& text) { form.atai_Change(mst_kyuka::name_field, text); }
};

TEST_F(DayKinds, AttendanceComesFirstAndTheStandardOnesFirstWithinEachClass) {
    rovdata().exec("insert into kyutype values (1, '公休', 1, 0), (2, ' 有休 ', null, 0), (3, '出勤', 2, 1),"
                   " (4, '休日出勤', 0, 1), (5, '欠勤', null, null), (6, '特別', 7, 0)");
    form.Form_Load();
    EXPECT_EQ(listed(), QStringList({u"出勤|通常|出勤"_s, u"休日出勤||出勤"_s, u"特別|通常|休暇"_s, u"公休|通常|休暇"_s,
                            u"有休||休暇"_s, u"欠勤||休暇"_s}));
}

TEST_F(DayKinds, TheMarkFollowsTheClassAndTheClassStaysForTheNextKind) {
    form.Form_Load();
    name(u"出勤"_s);
    form.ch_hyou_Click(true);
    form.Op_kyusyu_Click(1);
    EXPECT_FALSE(form.atai_KeyDown(key::right) || form.toubotan_KeyDown(key::up));
    EXPECT_EQ(stored(), QStringList());
    EXPECT_TRUE(form.atai_KeyDown(key::enter));
    EXPECT_EQ(form.focus, (Focus{Control::Toubotan})) << "the hidden button registers";
    form.toubotan_GotFocus();
    EXPECT_TRUE(form.toubotan_KeyDown(key::enter));
    EXPECT_FALSE(form.ch_hyou);
    EXPECT_EQ(form.Op_kyusyu, 1);
    name(u"休日出勤"_s);
    form.botan_Click(1);
    name(u"公休"_s);
    form.Op_kyusyu_Click(0);
    form.ch_hyou_Click(true);
    form.botan_Click(1);
    EXPECT_EQ(stored(), QStringList({u"1|出勤|2|1"_s, u"2|休日出勤|-|1"_s, u"3|公休|1|0"_s}));
    form.hyou_Click(3);
    form.ch_hyou_Click(false);
    form.botan_Click(1);
    EXPECT_EQ(stored().last(), u"3|公休|-|0"_s);
}

TEST_F(DayKinds, AClickTakesTheRowInHandAndASaveNeedsANameAndReplacesIt) {
    rovdata().exec("insert into kyutype values (1, '公休', 1, 0), (3, '出勤', 2, 1)");
    form.Form_Load();
    name(u"特休"_s);
    form.botan_Click(2);
    EXPECT_EQ(form.atai[mst_kyuka::name_field], u"特休"_s) << "a new kind has nothing to delete";
    EXPECT_EQ(form.focus, (Focus{Control::Atai, mst_kyuka::name_field}));
    form.hyou_Click(1);
    EXPECT_EQ(form.atai[mst_kyuka::key_field], u"3"_s);
    EXPECT_TRUE(form.ch_hyou);
    EXPECT_EQ(form.Op_kyusyu, 1);
    EXPECT_FALSE(form.mark_unregistered());
    name(u"  "_s);
    EXPECT_TRUE(form.mark_unregistered() && form.hyou.Look(1, 0).dot);
    form.botan_Click(1);
    EXPECT_EQ(host.shown, (std::vector<Shown>{{u"休暇名を入力してください"_s, u"休暇名未入力"_s, Buttons::Ok}}));
    name(odd_name);
    form.Op_kyusyu_Click(0);
    form.botan_Click(1);
    EXPECT_EQ(stored(), QStringList({u"1|公休|1|0"_s, u"3|"_s + odd_name + u"|1|0"_s}));
    EXPECT_EQ(counter(u"休暇種類"_s), 0);
    form.hyou_Click(1);
    name(u""_s);
    form.botan_Click(2);
    EXPECT_EQ(stored().size(), 1) << "a delete needs no name and doesn't ask";
    form.hyou_Click(1);
    form.hyou_Click(0);
    EXPECT_EQ(form.atai[mst_kyuka::key_field], u"3"_s) << "the heading is no row";
    rovdata().exec("delete from kyutype"); // on another PC meanwhile
    const QString said = form.deletions.line();
    form.botan_Click(2);
    EXPECT_EQ(form.deletions.line(), said) << "there is nothing to be had back";
}

} // namespace masters
