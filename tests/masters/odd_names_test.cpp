// Names that a careless screen would damage, through every form: as long as a field, of nothing but full-width blanks,
// with quotes, with characters of two units.

#include "masters/company.h"
#include "masters/mst_kinjikan.h"
#include "masters/mst_kinsyu.h"
#include "masters/mst_kintype.h"
#include "masters/mst_kyuka.h"
#include "masters/mst_syain.h"

namespace masters {

namespace {

const QString odd_names[] = {
    QString(255, u'名'), u"　　"_s, u"O'Neil \"x\"; --"_s, QString(30, u' ').replace(u' ', u"😀"_s)};

class OddNames : public Company {
protected:
    void SetUp() override { allsystem().exec("insert into allsystem (個別dataファイル) values ('rovdata.mdb')"); }

    void enter_category(const QString& name) {
        mst_kinsyu form(session);
        form.Form_Load();
        form.hyou_Click({form.hyou.Rows() - 1, mst_kinsyu::name_col});
        form.atai_Change(u"x"_s);
        form.atai_Change(name);
        form.botan_Click(1);
    }
    void enter_work_type(const QString& name) {
        mst_kinjikan form(session);
        form.Form_Load();
        form.kinjikanmei_Change(name);
        form.hyou_Click({1, band_col::start});
        form.atai_Change(u"830"_s);
        form.hyou_Click({1, band_col::category_name});
        form.atai_com_Click(0, int(form.atai_com[0].items.size()) - 1);
        form.botan_Click(1);
    }
    void enter_kind(const QString& name) {
        mst_kyuka form(session);
        form.Form_Load();
        form.atai_Change(mst_kyuka::name_field, name);
        form.botan_Click(1);
    }
    void enter_employee(const QString& name) {
        mst_syain form(session);
        form.Form_Load();
        form.atai_Change(mst_syain::number_field, u"7"_s);
        form.atai_Change(mst_syain::name_field, name);
        form.atai_Change(mst_syain::reading_field, name);
        form.botan_Click(1);
    }
    void assign_last_type() {
        mst_kintype form(session);
        form.Form_Load();
        form.hyou_Click({form.hyou.Rows() - 1, mst_kintype::type_name_col});
        form.atai_com_Click(int(form.atai_com.items.size()) - 1);
    }
};

} // namespace

TEST_F(OddNames, TheyAreStoredAsTheyWereTypedAndLeadToTheirRows) {
    QStringList names, employees, uses;
    for (const QString& name : odd_names) {
        enter_category(name);
        enter_work_type(name);
        enter_kind(name);
        enter_employee(name);
        assign_last_type();
        names << name;
        employees << name + u'|' + name;
        uses << digits(names.size());
    }
    EXPECT_EQ(rows(rovdata(), "select 種類名 from kinsyu order by システム番号"), names);
    EXPECT_EQ(rows(rovdata(), "select 勤務タイプ名 from kintype order by システム番号"), names);
    EXPECT_EQ(rows(rovdata(), "select 休暇名 from kyutype order by システム番号"), names);
    constexpr std::string_view all_employees = "select 社員名, フリガナ from syain order by システム番号";
    EXPECT_EQ(rows(rovdata(), all_employees), employees);
    EXPECT_EQ(rows(comsys(), all_employees), employees);
    EXPECT_EQ(rows(rovdata(), "select 時間種類 from kintype order by システム番号"), uses);
    EXPECT_EQ(rows(rovdata(), "select 勤務タイプ from syainkinmu order by システム社員番号"), uses);
}

TEST_F(OddNames, MoreCategoriesThanAListOnceHeldAreAllFound) {
    for (int number = 1; number <= 150; ++number)
        add_category(number, u"種類"_s + digits(number));
    add_band(1, u"普通"_s, 1, 1, 830, 1715, 150);
    mst_kinjikan form(session);
    form.Form_Load();
    form.hyoulist_Click(1);
    EXPECT_EQ(form.hyou(1, band_col::category_name), u"種類150"_s);
}

} // namespace masters
