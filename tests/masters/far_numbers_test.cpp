// Numbers at the ends of their ranges, chosen from the lists and stored.

#include "masters/company.h"
#include "masters/mst_kinjikan.h"
#include "masters/mst_kintype.h"

namespace masters {

using FarNumbers = Company;

TEST_F(FarNumbers, TheyAreChosenAndStoredWhole) {
    constexpr int top = 2147483647;
    add_category(top, u"末"_s);
    add_band(top, u"型"_s, 6, 10, 0, 2359, 1, 0, 2359, 1);
    add_employee(top, u"1"_s, u"末"_s);

    mst_kinjikan work_types(session);
    work_types.Form_Load();
    work_types.hyoulist_Click(1);
    work_types.hyou_youbi_Click(6);
    work_types.hyou_Click({10, band_col::category_name});
    work_types.atai_com_Click(0, 0);
    work_types.botan_Click(1);
    EXPECT_EQ(
        rows(rovdata(), "select システム番号, 曜日, 連番, 開始時間, 終了時間, 時間種類, 休憩勤務時間1 from kintype"),
        QStringList({u"2147483647|6|10|0|2359|2147483647|2359"_s}));

    mst_kintype assignment(session);
    assignment.Form_Load();
    assignment.hyou_Click({1, mst_kintype::type_name_col});
    assignment.atai_com_Click(0);
    EXPECT_EQ(rows(rovdata(), "select * from syainkinmu"), QStringList({u"2147483647|2147483647"_s}));
}

} // namespace masters
