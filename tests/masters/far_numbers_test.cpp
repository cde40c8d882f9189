// Numbers at the ends of their ranges, through every form.

#include "masters/company.h"
#include "masters/mst_kinjikan.h"
#include "masters/mst_kintype.h"
#include "masters/mst_kyuka.h"
#include "masters/mst_syain.h"

namespace masters {

namespace {

constexpr int top = 2147483647;

} // namespace

class FarNumbers : public Company {};

TEST_F(FarNumbers, TheyAreChosenAndStoredWhole) {
    add_category(top, u"末"_s);
    add_band(top, u"型"_s, 6, 10, 0, 2359, 1, 0, 2359, 1);
    add_employee(top, u"1"_s, u"末"_s);
    rovdata().exec("insert into kyutype values (2147483647, '末', null, 0)");

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

    mst_kyuka kinds(session);
    kinds.Form_Load();
    kinds.hyou_Click(1);
    kinds.ch_hyou_Click(true);
    kinds.botan_Click(1);
    EXPECT_EQ(rows(rovdata(), "select * from kyutype"), QStringList({u"2147483647|末|1|0"_s}));
}

TEST_F(FarNumbers, AnEmployeesNumberIsWhatWasTyped) {
    allsystem().exec("insert into allsystem (個別dataファイル) values ('rovdata.mdb')");
    mst_syain form(session);
    form.Form_Load();
    form.sortlist_Click(1);
    for (const QString& number : {u"99999999999"_s, u"-5"_s, u"0"_s}) {
        form.atai_Change(mst_syain::number_field, number);
        form.atai_Change(mst_syain::name_field, u"名"_s);
        form.botan_Click(1);
    }
    EXPECT_EQ(column(form.hyou, 0), QStringList({u"-5"_s, u"0"_s, u"99999999999"_s}));
}

} // namespace masters
