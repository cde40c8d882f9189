#include "base/text.h"
#include "masters/company.h"
#include "masters/mst_kinjikan.h"
#include "masters/mst_kinsyu.h"
#include "masters/mst_kyuka.h"
#include "masters/mst_syain.h"

namespace masters {

class DeletedRows : public Company {
protected:
    mst_syain employees{session};
    mst_kyuka kinds{session};
    mst_kinsyu categories{session};
    mst_kinjikan types{session};

    void SetUp() override {
        list_file(u"rovdata.mdb"_s);
        comsys().exec("alter table syain add column 時給 real; insert into syain (システム番号, 社員番号, 社員名)"
                      " values (0, null, '全体'), (2, 9, '古い名')");
        rovdata().exec(
            "alter table syain add column 時給 real; alter table kyutype add column 色 text;"
            "insert into syain (システム番号, 社員番号, 社員名, 第２グループ, 時給) values (3, 1001, '田中', '', 0),"
            " (2, 1001, ' 山田 ', null, 950.5), (1, 2000, '林', '', null);"
            "insert into rovmei (社員システム番号, 出社日) values (2, 20040105), (2, 20040106), (2, 20040132), (3, "
            "20040105);"
            "insert into kyutype values (5, '有休', null, 0, 'red'), (6, '公休', 1, 0, null), (5, '有給', '', '0', '');"
            "insert into kyumei (社員システム番号, 年月日, システム番号) values (2, 20040105, 5), (3, 20040105, 5);"
            "insert into syainkinmu values (2, 7), (3, 7), (99, 7)");
        add_category(1, odd_name);
        add_band(7, u"普通"_s, 1, 1, 830, 1715);
        add_band(8, u"遅出"_s, 2, 1, 830, 1715);
        add_band(7, u"普通"_s, 9, 12, 2530, 1715);
        employees.Form_Load();
        kinds.Form_Load();
        categories.Form_Load();
        types.Form_Load();
    }

    QStringList stored() {
        QStringList all = rows(comsys(), "select rowid, * from syain order by rowid");
        for (const char* table : {"syain", "kyutype", "kinsyu", "kintype"})
            all << rows(rovdata(), std::string("select rowid, * from ") + table + " order by rowid");
        return all;
    }
};

TEST_F(DeletedRows, AreToldWithWhatHangsOnThemAndGoBackAsTheyWere) {
    employees.hyou_Click(2);
    employees.atai_Change(mst_syain::number_field, u"5"_s);
    kinds.hyou_Click(3);
    categories.hyou_Click({1, mst_kinsyu::name_col});
    types.hyoulist_Click(1);
    const QStringList before = stored();
    const std::tuple<MasterScreen&, QString, QString> screens[] = {
        {employees, u"社員 1001"_s, u"勤怠 2日が残っています"_s},
        {kinds, u"休暇 有休"_s, u"登録済みの 2日に残っています"_s},
        {categories, u"勤務種類 "_s + odd_name, u"勤務タイプの時間帯 3件に残っています"_s},
        {types, u"勤務タイプ 普通"_s, u"社員 2人に割り当てられています"_s},
    };
    for (const auto& [form, what, hanging] : screens) {
        EXPECT_EQ(form.deletions.line(), QString());
        form.botan_Click(2);
        EXPECT_EQ(form.deletions.line(), what + u" を削除しました（"_s + hanging + u'）');
        EXPECT_NE(stored(), before);
        form.undo_deletion();
        EXPECT_EQ(form.deletions.line(), what + u" を元に戻しました。"_s);
        EXPECT_EQ(stored(), before);
        EXPECT_FALSE(form.deletions.can_undo());
    }
    EXPECT_EQ(employees.hyou.Rows(), 4) << "the lists show them again";
    EXPECT_EQ(kinds.hyou.Rows(), 4);
}

TEST_F(DeletedRows, GoBackOneAfterTheOtherAndATypedNameStays) {
    add_category(2, u"残業"_s);
    categories.Form_Load();
    for (int i = 0; i < 2; ++i) {
        categories.hyou_Click({1, mst_kinsyu::name_col});
        categories.botan_Click(2);
    }
    categories.hyou_Click({1, mst_kinsyu::name_col});
    categories.atai_Change(u"早"_s);
    categories.undo_deletion();
    EXPECT_EQ(categories.deletions.line(), u"勤務種類 残業 を元に戻しました。　勤務種類 "_s + odd_name +
                                               u" を削除しました（勤務タイプの時間帯 3件に残っています）"_s);
    categories.undo_deletion();
    const QStringList names{Trim(odd_name), u"残業"_s, u"早"_s, u""_s};
    EXPECT_EQ(column(categories.hyou, mst_kinsyu::name_col), names);
    const QString said = categories.deletions.line();
    categories.undo_deletion();
    EXPECT_EQ(categories.deletions.line(), said) << "no more is deleted";
    EXPECT_EQ(column(categories.hyou, mst_kinsyu::name_col), names);
}

TEST_F(DeletedRows, AreToldByTwentyCharactersOfTheirNameOrAsNameless) {
    EXPECT_EQ(short_name(QString(20, u'あ')), QString(20, u'あ'));
    EXPECT_EQ(short_name(QString(21, u'あ')), QString(20, u'あ') + u'…');
    rovdata().exec("delete from kintype; update kinsyu set 種類名=''");
    categories.Form_Load();
    categories.hyou_Click({1, mst_kinsyu::name_col});
    categories.botan_Click(2);
    EXPECT_EQ(categories.deletions.line(), u"勤務種類 （名前なし） を削除しました"_s);
}

TEST_F(DeletedRows, StayOutWhereTheRowIsThereAgainOrAnotherEmployeeHasTheNumber) {
    types.hyoulist_Click(1);
    types.botan_Click(2);
    types.botan_Click(1);
    employees.hyou_Click(2);
    employees.botan_Click(2);
    employees.hyou_Click(1);
    employees.atai_Change(mst_syain::number_field, u"1001"_s);
    employees.botan_Click(1);
    const QStringList now = stored();
    types.undo_deletion();
    EXPECT_TRUE(types.deletions.line().startsWith(u"勤務タイプ 普通 はもう登録されています。元に戻せません。"_s));
    employees.undo_deletion();
    EXPECT_TRUE(employees.deletions.line().startsWith(u"社員番号 1001 は別の社員が使っています。元に戻せません。"_s));
    EXPECT_EQ(stored(), now);
}

} // namespace masters
