#include "masters/mst_kinsyu.h"

#include "base/keys.h"
#include "masters/company.h"

namespace masters {

class Categories : public Company {
protected:
    mst_kinsyu form{session};

    void open() {
        form.Form_Load();
        form.Form_Activate();
    }

    /// One change for each character, as keys make them.
    void type(const QString& text) {
        for (const QChar c : text)
            form.atai_Change(form.atai.text + c);
    }

    QStringList stored() { return rows(rovdata(), "select システム番号, 種類名 from kinsyu order by rowid"); }
};

TEST_F(Categories, TypingAtOnceLandsInRowOneUnseen) {
    add_category(5, u" 残業 "_s);
    add_category(2, u"通常"_s);
    open();
    EXPECT_EQ(column(form.hyou, mst_kinsyu::name_col), QStringList({u"通常"_s, u"残業"_s, u""_s}));
    EXPECT_EQ(column(form.hyou, mst_kinsyu::number_col), QStringList({u"2"_s, u"5"_s, u""_s})) << "by number";
    EXPECT_FALSE(form.atai.visible);
    EXPECT_EQ(form.focus, (Focus{Control::Atai}));
    type(u"勤務"_s);
    form.botan_Click(1);
    EXPECT_EQ(stored().last(), u"2|通常勤務"_s);
}

TEST_F(Categories, ANewNameThatArrivesInOneChangeIsNotSaved) {
    open();
    form.atai_Change(u"深夜残業"_s);
    EXPECT_EQ(form.hyou(1, mst_kinsyu::name_col), u"深夜残業"_s);
    EXPECT_EQ(form.hyou.Rows(), 2) << "the change found an empty cell";
    form.botan_Click(1);
    EXPECT_EQ(stored(), QStringList());
    EXPECT_EQ(counter(u"勤務種類"_s), 0);
    EXPECT_EQ(form.notice->text, u"「深夜残業」はまだ登録されていません（1文字足して消すと登録されます）"_s);
    EXPECT_EQ(form.notice->place, (Cell{1, mst_kinsyu::name_col}));
    EXPECT_TRUE(form.mark_unregistered() && form.hyou.Look(1, mst_kinsyu::name_col).dot);

    form.hyou_Click({1, mst_kinsyu::name_col});
    form.atai_Change(odd_name);
    EXPECT_EQ(form.hyou.Rows(), 3) << "the second change is seen, and an empty row follows";
    EXPECT_EQ(form.hyou(1, mst_kinsyu::mark_col), u"1"_s);
    EXPECT_TRUE(form.atai_KeyDown(key::enter));
    EXPECT_EQ(stored(), QStringList({u"1|"_s + odd_name}));
    EXPECT_FALSE(form.notice);
    EXPECT_FALSE(form.mark_unregistered() || form.hyou.Look(1, mst_kinsyu::name_col).dot);
    EXPECT_EQ(form.atai.cell, (Cell{2, mst_kinsyu::name_col}));
}

TEST_F(Categories, OnlyTheRowOfTheNumberIsWritten) {
    add_category(3, u"a"_s);
    add_category(4, u"b"_s);
    add_category(3, u"c"_s);
    open();
    type(u"1"_s);
    form.botan_Click(1);
    EXPECT_EQ(stored(), QStringList({u"3|a1"_s, u"4|b"_s, u"3|c"_s})) << "the first row found";
}

TEST_F(Categories, ADeleteAsksAndReadsTheListAfresh) {
    add_category(1, u"早朝"_s);
    add_category(2, u"残業"_s);
    add_band(7, u"普通"_s, 1, 1, 830, 1715, 2);
    open();
    form.hyou_Click({2, mst_kinsyu::name_col});
    host.answers = {Answer::No, Answer::Yes};
    form.botan_Click(2);
    EXPECT_EQ(host.shown, (std::vector<Shown>{{u"『残業』を削除します"_s, u"削除"_s, Buttons::YesNo}}));
    EXPECT_EQ(stored().size(), 2);
    form.botan_Click(2);
    EXPECT_EQ(stored(), QStringList({u"1|早朝"_s}));
    EXPECT_EQ(rows(rovdata(), "select 時間種類 from kintype"), QStringList({u"2"_s})) << "uses of the number stand";
    form.hyou_Click({1, mst_kinsyu::name_col});
    type(u"A"_s);
    rovdata().exec("delete from kinsyu");
    form.botan_Click(1);
    EXPECT_EQ(stored(), QStringList({u"1|早朝A"_s})) << "deleted on another PC, it comes back under its number";
}

TEST_F(Categories, ANameCanBeEmptiedAndARowNeverSavedGoesWithADelete) {
    add_category(1, u"早朝"_s);
    form.Form_Load();
    form.botan_Click(2);
    EXPECT_TRUE(host.shown.empty()) << "no row is in hand yet";
    form.hyou_Click({2, mst_kinsyu::name_col});
    form.botan_Click(2);
    EXPECT_TRUE(host.shown.empty()) << "nothing is typed in the last one";
    form.Form_Activate();
    form.atai_Change(u""_s);
    form.botan_Click(1);
    EXPECT_EQ(stored(), QStringList({u"1|"_s}));
    form.hyou_Click({2, mst_kinsyu::name_col});
    form.atai_Change(u"深夜"_s);
    form.botan_Click(2);
    EXPECT_EQ(host.shown.back().text, u"『深夜』を削除します"_s);
    EXPECT_EQ(column(form.hyou, mst_kinsyu::name_col), QStringList({u""_s, u""_s}));
    EXPECT_EQ(stored().size(), 1);
}

TEST_F(Categories, AClickCommitsTheCellLeftBeforeTheNextIsOpened) {
    add_category(1, u"早朝"_s);
    add_category(2, u"残業"_s);
    open();
    type(u"2"_s);
    form.hyou_Click({2, mst_kinsyu::name_col});
    EXPECT_EQ(stored().first(), u"1|早朝2"_s);
    EXPECT_EQ(form.atai.text, u"残業"_s);
    for (const Cell no_box : {Cell{0, mst_kinsyu::name_col}, {1, mst_kinsyu::number_col}}) {
        form.hyou_Click(no_box);
        form.atai_Change(u"x"_s);
        EXPECT_FALSE(form.atai.active || form.mark_unregistered()) << "heading and hidden columns take no editor";
    }
}

TEST_F(Categories, ARowThatCouldntBeWrittenStaysInHandAndTheScreenStaysWithIt) {
    add_category(7, u"早朝"_s);
    open();
    form.hyou_Click({2, mst_kinsyu::name_col});
    type(u"夜勤"_s);
    for (const auto& leave : std::initializer_list<std::function<void()>>{[this] { form.botan_Click(0); },
             [this] {
                 form.hyou_Click({1, mst_kinsyu::name_col});
             },
             [this] { form.atai_KeyDown(key::up); }, [this] { form.atai_LostFocus(); }}) {
        form.focus.reset();
        form.hyou.SetCursor({1, mst_kinsyu::name_col});
        fails_without_rovdata(leave);
        EXPECT_FALSE(form.close_wanted);
        EXPECT_EQ(form.atai.text, u"夜勤"_s);
        EXPECT_EQ(form.atai.cell, (Cell{2, mst_kinsyu::name_col}));
        EXPECT_EQ(form.hyou.Row(), 2);
        EXPECT_EQ(form.focus, (Focus{Control::Atai}));
    }
    form.botan_Click(0);
    EXPECT_TRUE(form.close_wanted);
    EXPECT_EQ(stored().last(), u"1|夜勤"_s);
}

} // namespace masters
