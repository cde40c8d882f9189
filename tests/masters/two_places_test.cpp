// Two PCs with the same master open: the last writer wins, and nothing else is touched.

#include "masters/company.h"
#include "masters/mst_kinjikan.h"
#include "masters/mst_kinsyu.h"
#include "masters/mst_syain.h"

namespace masters {

namespace {

template <typename Form>
struct TwoPlaces : Company {
    Form here{session};
    Form there{session};

    void open_both() {
        here.Form_Load();
        there.Form_Load();
    }
};

struct CategoriesInTwoPlaces : TwoPlaces<mst_kinsyu> {
    static void rename(mst_kinsyu& form, int row, const QString& name) {
        form.hyou_Click({row, mst_kinsyu::name_col});
        form.atai_Change(name);
        form.botan_Click(1);
    }
};
using WorkTypesInTwoPlaces = TwoPlaces<mst_kinjikan>;
using EmployeesInTwoPlaces = TwoPlaces<mst_syain>;

} // namespace

TEST_F(CategoriesInTwoPlaces, ADeletedOneComesBackUnderItsNumberWhenItIsRenamed) {
    add_category(1, u"早朝"_s);
    add_category(2, u"残業"_s);
    open_both();
    rename(here, 1, u"早朝A"_s);
    rename(there, 1, u"早朝B"_s);
    there.hyou_Click({2, mst_kinsyu::name_col});
    there.botan_Click(2);
    rename(here, 2, u"残業A"_s);
    EXPECT_EQ(rows(rovdata(), "select システム番号, 種類名 from kinsyu order by システム番号"),
        QStringList({u"1|早朝B"_s, u"2|残業A"_s}));
}

TEST_F(WorkTypesInTwoPlaces, ATypeIsThatOfTheLastOneWhole) {
    add_band(7, u"普通"_s, 1, 1, 830, 1715);
    add_band(8, u"遅出"_s, 1, 1, 1000, 1900);
    open_both();
    const std::tuple<mst_kinjikan*, int, QString> entries[] = {{&here, 2, u"600"_s}, {&there, 3, u"700"_s}};
    for (const auto& [form, band, start] : entries) {
        form->hyoulist_Click(1);
        if (form == &there)
            form->kinjikanmei_Change(u"普通２"_s);
        form->hyou_Click({band, band_col::start});
        form->atai_Change(start);
    }
    here.botan_Click(1);
    there.botan_Click(1);
    EXPECT_EQ(rows(rovdata(), "select 勤務タイプ名, 連番, 開始時間 from kintype order by システム番号, 連番"),
        QStringList({u"普通２|1|830"_s, u"普通２|3|700"_s, u"遅出|1|1000"_s}));
}

TEST_F(EmployeesInTwoPlaces, AChangeOfOneThatWasDeletedMeanwhileBringsItBackInEveryCopy) {
    list_file(u"rovdata.mdb"_s);
    rovdata().exec("insert into syain values (4, 12, '山田', 'ヤマダ', '営業', '', '')");
    open_both();
    here.hyou_Click(1);
    there.hyou_Click(1);
    there.botan_Click(2);
    here.botan_Click(1);
    constexpr std::string_view all = "select システム番号, 社員名, 第１グループ from syain";
    EXPECT_EQ(rows(rovdata(), all), QStringList{u"4|山田|営業"_s});
    EXPECT_EQ(rows(comsys(), all), QStringList{u"4|山田|営業"_s});
}

} // namespace masters
