#include "masters/mst_syain.h"

#include "base/keys.h"
#include "masters/company.h"

namespace masters {

class Employees : public Company {
protected:
    mst_syain form{session};

    void SetUp() override { list_file(u"rovdata.mdb"_s); }

    void type(const QString& number, const QString& name, const QString& reading = {}) {
        form.atai_Change(mst_syain::number_field, number);
        form.atai_Change(mst_syain::name_field, name);
        form.atai_Change(mst_syain::reading_field, reading);
    }

    QStringList stored(store::Database database) {
        return rows(std::move(database), "select システム番号, 社員番号, 社員名, フリガナ from syain order by rowid");
    }
    void expect_in_every_copy(const QStringList& employees) {
        EXPECT_EQ(stored(comsys()), employees);
        EXPECT_EQ(stored(rovdata()), employees);
    }
};

TEST_F(Employees, TheListStandsInTheOrderChosenOnlyAfterTheNextReading) {
    add_employee(2, u"100"_s, u"あ"_s);
    add_employee(10, u"20"_s, u"い"_s);
    add_employee(1, u"300"_s, u"う"_s);
    form.Form_Load();
    EXPECT_EQ(column(form.hyou, 1), QStringList({u"う"_s, u"あ"_s, u"い"_s}));
    form.sortlist_Click(1);
    EXPECT_EQ(column(form.hyou, 2), QStringList({u"1"_s, u"2"_s, u"10"_s}));
    form.Command1_Click();
    EXPECT_EQ(column(form.hyou, 0), QStringList({u"20"_s, u"100"_s, u"300"_s}));

    mst_syain next(session);
    next.Form_Load();
    EXPECT_EQ(next.sortlist, 1) << "the order is kept for the next visit";
}

TEST_F(Employees, ANewEmployeeStandsInEveryCopyUnderOneNumberAndADeleteTakesItOutUnasked) {
    form.Form_Load();
    type(u" 7 "_s, u" 山田 "_s, u"ヤマダ"_s);
    form.botan_Click(1);
    type(u"8"_s, odd_name, odd_name);
    form.botan_Click(1);
    const QString second = u"2|8|"_s + odd_name + u'|' + odd_name;
    expect_in_every_copy({u"1|7|山田|ヤマダ"_s, second});
    EXPECT_EQ(column(form.hyou, 1), QStringList({u"山田"_s, odd_name}));
    rovdata().exec("insert into syainkinmu values (1, 7)");
    form.hyou_Click(1);
    form.botan_Click(2);
    expect_in_every_copy({second});
    EXPECT_EQ(rows(rovdata(), "select * from syainkinmu"), QStringList({u"1|7"_s}));
    EXPECT_TRUE(host.shown.empty());
}

TEST_F(Employees, OnlyANewEmployeeNeedsANameForADeleteTooWhichDrawsANumberAndDeletesNobody) {
    add_employee(4, u"12"_s, u"山田"_s);
    form.Form_Load();
    form.botan_Click(2);
    form.botan_Click(1);
    EXPECT_EQ(host.shown, (std::vector<Shown>(2, {u"項目を入力してださい"_s, u"未入力"_s, Buttons::Ok})));
    EXPECT_EQ(counter(u"社員番号"_s), 0);
    type(u""_s, u"x"_s);
    form.botan_Click(2);
    EXPECT_EQ(counter(u"社員番号"_s), 1);
    form.hyou_Click(1);
    form.atai_Change(mst_syain::name_field, u""_s);
    form.botan_Click(1);
    EXPECT_EQ(stored(rovdata()), QStringList({u"4|12||"_s}));
}

TEST_F(Employees, TheNumber9999IsNeverGiven) {
    comsys().exec("insert into bangou (番号名称, 番号) values ('社員番号', 9998)");
    form.Form_Load();
    type(u"1"_s, u"山田"_s);
    form.botan_Click(1);
    EXPECT_EQ(stored(rovdata()), QStringList({u"10000|1|山田|"_s}));
}

TEST_F(Employees, TheKeysWalkTheBoxesAndRegisterAtTheEnd) {
    form.Form_Load();
    type(u"1"_s, u"山田"_s);
    const std::tuple<int, int, std::optional<Focus>> moves[] = {
        {mst_syain::number_field, key::enter, Focus{Control::Atai, mst_syain::name_field}},
        {mst_syain::reading_field, key::enter, Focus{Control::Toubotan}},
        {mst_syain::reading_field, key::up, Focus{Control::Atai, mst_syain::name_field}},
        {mst_syain::number_field, key::up, std::nullopt},
    };
    for (const auto& [element, code, target] : moves) {
        form.focus.reset();
        EXPECT_EQ(form.atai_KeyDown(element, code), target.has_value());
        EXPECT_EQ(form.focus, target);
    }
    EXPECT_TRUE(form.toubotan_KeyDown(key::up));
    EXPECT_EQ(form.focus, (Focus{Control::Atai, mst_syain::reading_field}));
    EXPECT_TRUE(form.toubotan_KeyDown(key::enter));
    EXPECT_EQ(stored(rovdata()).size(), 1);
}

} // namespace masters
