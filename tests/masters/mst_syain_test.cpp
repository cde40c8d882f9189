#include "masters/mst_syain.h"

#include "base/keys.h"
#include "masters/company.h"

#ifdef Q_OS_LINUX
#include <sys/wait.h>
#include <unistd.h>
#endif

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
    void save(const QString& number, const QString& name, const QString& reading = {}) {
        type(number, name, reading);
        form.botan_Click(1);
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
    save(u" 7 "_s, u" 山田 "_s, u"ヤマダ"_s);
    save(u"8"_s, odd_name, odd_name);
    form.atai_Change(mst_syain::number_field, u"7"_s);
    form.atai_LostFocus(mst_syain::number_field);
    EXPECT_EQ(form.notice, u"社員番号 7 は 山田 さんも使っています"_s);
    form.hyou_Click(1);
    form.atai_LostFocus(mst_syain::number_field);
    EXPECT_EQ(form.notice, QString()) << "its own number";
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
    EXPECT_FALSE(form.mark_unregistered());
    form.atai_Change(mst_syain::name_field, u""_s);
    EXPECT_TRUE(form.mark_unregistered() && form.hyou.Look(1, 0).dot);
    form.botan_Click(1);
    EXPECT_FALSE(form.mark_unregistered() || form.hyou.Look(1, 0).dot);
    EXPECT_EQ(stored(rovdata()), QStringList({u"4|12||"_s}));
}

TEST_F(Employees, OneWhoIsGoneMeanwhileLeavesTheScreenForANewOneAndNumberZeroIsNobody) {
    add_employee(0, u"0"_s, u"全体"_s);
    add_employee(4, u"12"_s, u"山田"_s);
    form.Form_Load();
    form.hyou_Click(2);
    for (const int row : {1, 99, -1}) {
        form.hyou_Click(row);
        EXPECT_EQ(form.atai[mst_syain::name_field], u"山田"_s) << row;
    }
    rovdata().exec("delete from syain"); // on another PC
    form.hyou_Click(2);
    EXPECT_EQ(form.atai[mst_syain::key_field] + form.atai[mst_syain::name_field], u""_s);
    EXPECT_FALSE(form.mark_unregistered());
}

TEST_F(Employees, TheNumber9999IsNeverGiven) {
    comsys().exec("insert into bangou (番号名称, 番号) values ('社員番号', 9998)");
    form.Form_Load();
    save(u"1"_s, u"山田"_s);
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
        {mst_syain::key_field, key::enter, std::nullopt},
        {mst_syain::name_field, key::right, std::nullopt},
    };
    for (const auto& [element, code, target] : moves) {
        form.focus.reset();
        EXPECT_EQ(form.atai_KeyDown(element, code), target.has_value());
        EXPECT_EQ(form.focus, target);
    }
    EXPECT_FALSE(form.toubotan_KeyDown(key::right));
    EXPECT_TRUE(form.toubotan_KeyDown(key::up));
    EXPECT_EQ(form.focus, (Focus{Control::Atai, mst_syain::reading_field}));
    EXPECT_TRUE(form.toubotan_KeyDown(key::enter));
    EXPECT_EQ(stored(rovdata()).size(), 1);
    EXPECT_EQ(form.focus, (Focus{Control::Atai, mst_syain::number_field})) << "for the next one";
}

/// The data files of the other products take part in what is saved.
class Copies : public Employees {
protected:
    QString data_path(const QString& name) const {
        return QFileInfo(store::rovdata_path(tree.settings)).path() + u'/' + name;
    }

    /// A data file of another product of the suite, listed in `allsystem`.
    store::Database sibling(const QString& name, std::string_view definition) {
        list_file(name);
        auto database = store::Database::create(data_path(name), store::Kind::Any);
        database.exec(definition);
        return database;
    }

    /// The file that the failing save names; empty if it didn't fail.
    QString file_that_stops_a_save() {
        try {
            save(u"1"_s, u"山田"_s);
        } catch (const store::Error& error) {
            return QFileInfo(error.file()).fileName();
        }
        return {};
    }
};

constexpr std::string_view all_names = "select システム番号, 社員名 from syain order by システム番号";
constexpr std::string_view four_fields =
    "create table syain (システム番号 integer, 社員番号 integer, 社員名 text, フリガナ text)";

TEST_F(Copies, FieldsBeyondTheFourAreCarriedOverByNameAndType) {
    rovdata().exec("alter table syain add column 部署 integer; alter table syain add column 時給 real;"
                   "alter table syain add column 手当 double;"
                   "insert into syain values (4, 12, '山田', 'ヤマダ', '営業', '', null, 30, 950.5, null)");
    comsys().exec("alter table syain add column 時給 real; alter table syain add column 部署 text; alter table syain "
                  "add column 手当 float;"
                  "insert into syain (システム番号, 社員番号, 社員名) values (4, 1, '古い名'), (0, null, '全体')");
    form.Form_Load();
    form.hyou_Click(1);
    rovdata().exec("delete from syain"); // on another PC meanwhile
    form.atai_Change(mst_syain::name_field, u"山田花子"_s);
    form.botan_Click(1);
    constexpr std::string_view all = "select システム番号, 社員番号, 社員名, フリガナ, 第１グループ, 第３グループ, "
                                     "部署, 時給, 手当 from syain order by rowid";
    EXPECT_EQ(rows(rovdata(), all), QStringList({u"4|12|山田花子|ヤマダ|営業||30|950.5|0.0"_s}));
    EXPECT_EQ(
        rows(comsys(), all), QStringList({u"0|-|全体|-|-|-|-|-|-"_s, u"4|12|山田花子|ヤマダ|営業||30|950.5|0.0"_s}))
        << "a delete and an add";
}

TEST_F(Copies, ANumberFieldTakesTheLeadingNumberOfTheText) {
    form.Form_Load();
    save(u"12-A"_s, u"山田"_s);
    save(u"A"_s, u"田中"_s);
    EXPECT_EQ(rows(comsys(), "select 社員番号, typeof(社員番号) from syain order by rowid"),
        QStringList({u"12|integer"_s, u"0|integer"_s}));
}

TEST_F(Copies, SiblingFilesTakePartAndOnesWithoutEmployeesDoNot) {
    sibling(u"sale.mdb"_s, four_fields);
    sibling(u"stock.mdb"_s, "create table goods (x text)");
    for (const QString& name : {u"gone.mdb"_s, u""_s, u"rovdata.mdb"_s, u"..\\mst\\comsys.mdb"_s})
        list_file(name);
    form.Form_Load();
    save(u"1"_s, u"山田"_s);
    std::array copies{comsys(), rovdata(), store::Database::open(data_path(u"sale.mdb"_s), store::Kind::Any)};
    for (store::Database& copy : copies)
        EXPECT_EQ(rows(std::move(copy), all_names), QStringList{u"1|山田"_s});
}

TEST_F(Copies, AFileThatCantTakeTheChangeStopsItBeforeTheFirstFile) {
    form.Form_Load();
    const auto stops = [this](const QString& name) {
        EXPECT_EQ(file_that_stops_a_save(), name);
        EXPECT_EQ(rows(comsys(), "select * from syain") + rows(rovdata(), "select * from syain"), QStringList());
        allsystem().prepare("delete from allsystem where 個別dataファイル=?").bind(name).run();
    };
    sibling(u"old.mdb"_s, "create table syain (システム番号 integer, 社員番号 integer, 社員名 text)");
    stops(u"old.mdb"_s);
    list_file(u"text.mdb"_s);
    support::put_bytes(data_path(u"text.mdb"_s), QByteArray(9000, 'x'));
    stops(u"text.mdb"_s);
    sibling(u"broken.mdb"_s, four_fields)
        .exec("create trigger t before insert on syain begin select raise(abort, 'x'); end");
    stops(u"broken.mdb"_s);
    form.botan_Click(1);
    EXPECT_EQ(rows(rovdata(), all_names), QStringList({u"1|山田"_s})) << "the number drawn is still in hand";
}

#ifdef Q_OS_LINUX
TEST_F(Copies, TwoProgramsSavingAtOnceLoseNoEmployee) {
    constexpr int each = 15;
    const auto save_some = [&](const QString& letter) {
        form.Form_Load();
        for (int n = 1; n <= each; ++n)
            save(digits(n), letter + digits(n));
    };
    const pid_t other = fork();
    ASSERT_GE(other, 0);
    if (other == 0) {
        int result = 0;
        try {
            save_some(u"b"_s);
        } catch (const std::exception&) {
            result = 1;
        }
        _exit(result);
    }
    save_some(u"a"_s);
    int status = -1;
    waitpid(other, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(rows(comsys(), all_names), rows(rovdata(), all_names));
    EXPECT_EQ(rows(comsys(), "select count(*), count(distinct システム番号) from syain"), QStringList({u"30|30"_s}));
}
#endif

} // namespace masters
