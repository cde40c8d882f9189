#include "masters/employee_copies.h"

#include "masters/company.h"
#include "masters/mst_syain.h"
#include "support/stored.h"

#include <sys/wait.h>
#include <unistd.h>

namespace masters {

class Copies : public Company {
protected:
    mst_syain form{session};

    void SetUp() override { list_file(u"rovdata.mdb"_s); }

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

    void save(const QString& number, const QString& name) {
        form.atai_Change(mst_syain::number_field, number);
        form.atai_Change(mst_syain::name_field, name);
        form.botan_Click(1);
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

constexpr std::string_view four_fields =
    "create table syain (システム番号 integer, 社員番号 integer, 社員名 text, フリガナ text)";

TEST_F(Copies, FieldsBeyondTheFourAreCarriedOverByNameAndType) {
    rovdata().exec("alter table syain add column 部署 integer; alter table syain add column 時給 real;"
                   "alter table syain add column 手当 real;"
                   "insert into syain values (4, 12, '山田', 'ヤマダ', '営業', '', null, 30, 950.5, null)");
    comsys().exec("alter table syain add column 時給 real; alter table syain add column 部署 text; alter table syain "
                  "add column 手当 real;"
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
    constexpr std::string_view all = "select システム番号, 社員名 from syain";
    const QStringList expected{u"1|山田"_s};
    EXPECT_EQ(rows(comsys(), all), expected);
    EXPECT_EQ(rows(rovdata(), all), expected);
    EXPECT_EQ(support::rows_of(data_path(u"sale.mdb"_s), store::Kind::Any, all), expected);
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
    EXPECT_EQ(rows(rovdata(), "select システム番号, 社員名 from syain"), QStringList({u"1|山田"_s}))
        << "the number drawn is still in hand";
}

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
    constexpr std::string_view all = "select システム番号, 社員名 from syain order by システム番号";
    const QStringList in_comsys = rows(comsys(), all);
    EXPECT_EQ(in_comsys.size(), 2 * each);
    EXPECT_EQ(in_comsys, rows(rovdata(), all));
    EXPECT_EQ(rows(comsys(), "select count(distinct システム番号) from syain"), QStringList({u"30"_s}));
}

} // namespace masters
