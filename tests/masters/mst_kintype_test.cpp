#include "masters/mst_kintype.h"

#include "masters/company.h"

namespace masters {

class Assignments : public Company {
protected:
    mst_kintype form{session};

    void SetUp() override {
        add_employee(1, u"20"_s, u"山田"_s);
        add_employee(2, u"3"_s, u" 田中 "_s);
        add_employee(3, u""_s, u"番号なし"_s);
        add_band(7, u"普通社員"_s, 1, 1, 830, 1715);
        add_band(7, u"普通社員"_s, 2, 1, 830, 1715);
        add_band(top, u"Ｂパート"_s, 1, 1, 1300, 1700);
    }

    void assign(int employee, int type) {
        rovdata().prepare("insert into syainkinmu values (?, ?)").bind(employee, type).run();
    }

    QStringList stored() { return rows(rovdata(), "select * from syainkinmu order by rowid"); }
};

TEST_F(Assignments, AChoiceIsSavedAtOnceAndReplacesEveryRowOfTheEmployee) {
    for (const auto& [employee, type] : {std::pair(1, top), {2, 7}, {1, 7}, {55, 7}, {3, 99}})
        assign(employee, type);
    form.Form_Load();
    EXPECT_EQ(column(form.hyou, mst_kintype::number_col), QStringList({u"3"_s, u"20"_s})) << "those with a number";
    EXPECT_EQ(column(form.hyou, mst_kintype::name_col), QStringList({u"田中"_s, u"山田"_s}));
    EXPECT_EQ(column(form.hyou, mst_kintype::type_name_col), QStringList({u"普通社員"_s, u"普通社員"_s}))
        << "of two rows the later one";
    form.hyou_Click({2, mst_kintype::type_name_col});
    EXPECT_EQ(form.atai_com.index, 0);
    form.atai_com_Click(1);
    EXPECT_EQ(stored(), QStringList({u"2|7"_s, u"55|7"_s, u"3|99"_s, u"1|2147483647"_s}));
    EXPECT_EQ(form.hyou(2, mst_kintype::type_name_col), u"Ｂパート"_s);
    fails_without_rovdata([this] { form.atai_com_Click(0); });
    EXPECT_EQ(form.atai_com.index, 1) << "what couldn't be saved isn't shown as chosen";
    EXPECT_EQ(form.hyou(2, mst_kintype::type_name_col), u"Ｂパート"_s);
    for (const auto& [first_row, visible] : {std::pair(1, true), {3, false}}) {
        form.hyou_Scroll(first_row, 0, 20'000, 2'000);
        EXPECT_EQ(form.atai_com.visible, visible) << first_row;
    }
}

TEST_F(Assignments, AChoiceCountsOnlyWhileTheListIsShownOverACell) {
    form.Form_Load();
    for (const Cell no_list : {Cell{1, mst_kintype::name_col}, {0, mst_kintype::type_name_col}}) {
        form.hyou_Click(no_list);
        form.atai_com_Click(0);
    }
    form.hyou_Click({1, mst_kintype::type_name_col});
    form.atai_com_LostFocus();
    form.atai_com_Click(0);
    form.保存処理(EmployeeKey(0), WorkTypeKey(7));
    form.保存処理(EmployeeKey(1), WorkTypeKey(0));
    EXPECT_EQ(stored(), QStringList());
}

TEST_F(Assignments, ATypeWithoutRowsReadsAsNoneAndOfTwoNamesTheFirstIsShown) {
    add_band(7, u"普通社員２"_s, 3, 1, 830, 1715);
    assign(2, 99);
    assign(1, 7);
    form.Form_Load();
    EXPECT_EQ(column(form.hyou, mst_kintype::type_name_col), QStringList({u""_s, u"普通社員"_s}));
    EXPECT_EQ(form.hyou.Look(1, mst_kintype::type_name_col).stand_in, u"（未設定）"_s);
    EXPECT_EQ(stored(), QStringList({u"2|99"_s, u"1|7"_s})) << "the row of the type stays";
    for (const int row : {2, 1}) {
        form.hyou_Click({row, mst_kintype::type_name_col});
        EXPECT_EQ(form.atai_com.index, row == 2 ? 0 : -1) << "not the type of the employee clicked before";
    }
}

} // namespace masters
