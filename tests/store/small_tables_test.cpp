// What the programs keep in small tables: counters, settings, and the register of the products.

#include "error_code.h"
#include "platform/paths.h"
#include "store/numbering.h"
#include "store/setup.h"
#include "support/stored.h"
#include "test_tree.h"

using namespace base;
using namespace store;

namespace {

using Fields = std::array<QString, 7>;

class Comsys : public testing::Test {
protected:
    TestTree tree;
    Database comsys = Database::open(comsys_path(tree.settings), Kind::Comsys);

    Fields look_up(const QString& table, const QString& key_field, const QString& key, const Fields& fields) {
        return マスター項目取得(tree.settings, table, key_field, key, fields);
    }
};

TEST_F(Comsys, EachCounterStartsAtOneAndRisesByItself) {
    EXPECT_EQ(採番(tree.settings, u"勤務種類"_s), 1);
    EXPECT_EQ(採番(tree.settings, u"勤務種類"_s), 2);
    EXPECT_EQ(採番(tree.settings, u"休暇種類"_s), 1);
    EXPECT_EQ(採番(tree.settings, u"勤務種類"_s), 3);
    EXPECT_EQ(number_from(comsys, "select count(*) from bangou"), 2);
}

TEST_F(Comsys, ACounterThatIsBehindTheTablesGivesNoNumberThatIsInUse) {
    Database::open(rovdata_path(tree.settings), Kind::Rovdata)
        .exec("insert into kinsyu values (1, '夜'), (3, '朝'); insert into kinjisyu (勤務種類) values (6);"
              "insert into kintype (システム番号, 時間種類) values (3, 7);"
              "insert into rovmei (社員システム番号) values (12), (13)");
    comsys.exec("insert into bangou values ('勤務時間', 2), ('休暇種類', 8), ('社員番号', 11)");
    EXPECT_EQ(採番(tree.settings, u"勤務種類"_s), 8) << "attendance of what was deleted counts";
    EXPECT_EQ(採番(tree.settings, u"勤務時間"_s), 4);
    EXPECT_EQ(採番(tree.settings, u"休暇種類"_s), 9);
    EXPECT_EQ(採番(tree.settings, u"社員番号"_s), 14);
    EXPECT_EQ(採番(tree.settings, u"社員番号"_s), 15);
}

TEST_F(Comsys, ALookupGivesTheFieldsOfTheFirstRowWithTheKey) {
    comsys.exec(
        "insert into syain values (3, 12, '山田', 'ヤマダ', 'a', null, ''), (4, 12, '佐藤', 'サトウ', '', '', '')");
    const QString table = u"syain"_s, key = u"社員番号"_s, name = u"社員名"_s;
    EXPECT_EQ(look_up(table, key, u" 12 "_s, {u"システム番号"_s, name, {}, u"第２グループ"_s, u"フリガナ"_s}),
        (Fields{u"3"_s, u"山田"_s, {}, {}, u"ヤマダ"_s}));
    EXPECT_EQ(look_up(table, key, u"99"_s, {name}), Fields());
    EXPECT_EQ(look_up({}, key, u"12"_s, {name}), Fields());
    EXPECT_EQ(look_up(table, u" "_s, u"12"_s, {name}), Fields());
    EXPECT_EQ(look_up(table, key, u" "_s, {name}), Fields());
    EXPECT_EQ(look_up(table, key, u"12"_s, {}), Fields());

    const auto misused = [&](const QString& in, const QString& by, const QString& field) {
        return code_of([&] { look_up(in, by, u"12"_s, {field}); }) == Code::Misuse;
    };
    EXPECT_TRUE(misused(u"tokui"_s, key, name));
    EXPECT_TRUE(misused(table, u"社員番号\" or 1 or \""_s, name));
    EXPECT_TRUE(misused(table, key, u"住所"_s));
}

class Settings : public testing::Test {
protected:
    TestTree tree;
    SettingTables tables{tree.settings};
};

TEST_F(Settings, AKeyThatIsntThereReadsEmptyAndIsAddedByTheFirstWrite) {
    EXPECT_EQ(tables.設定読込(u"losystem"_s, u"使用区分"_s), QString());
    tables.設定書込(u"losystem"_s, u"使用区分"_s, u"2"_s);
    tables.設定書込(u"losystem"_s, u"使用区分"_s, u"1"_s);
    EXPECT_EQ(tables.設定読込(u"losystem"_s, u"使用区分"_s), u"1"_s);
    Database losys = Database::open(losys_path(tree.settings), Kind::Losys);
    EXPECT_EQ(number_from(losys, "select count(*) from losystem"), 1);
}

TEST_F(Settings, EachTableLiesInItsOwnFile) {
    for (const QString& table : {u"losystem"_s, u"rov_kihon"_s, u"kihon"_s})
        tables.設定書込(table, u"a'b\""_s, table);
    for (const QString& table : {u"losystem"_s, u"rov_kihon"_s, u"kihon"_s})
        EXPECT_EQ(tables.設定読込(table, u"a'b\""_s), table) << "a quote in a key is a character";
    Database rovdata = Database::open(rovdata_path(tree.settings), Kind::Rovdata);
    EXPECT_EQ(number_from(rovdata, "select count(*) from rov_kihon where データ='rov_kihon'"), 1);
}

TEST_F(Settings, OneOpeningServesSeveralReadsAndItsWritesStandTogetherOrNotAtAll) {
    const auto write_both = [this](bool commits) {
        OpenSettings kihon = tables.open(u"kihon"_s);
        kihon.設定書込(u"和西暦表示"_s, u"1"_s);
        kihon.設定書込(u"月初日付"_s, u"21"_s);
        EXPECT_EQ(tables.設定読込(u"kihon"_s, u"和西暦表示"_s), QString()) << "seen by nobody else yet";
        EXPECT_EQ(kihon.設定読込(u"月初日付"_s), u"21"_s);
        if (commits)
            kihon.commit();
    };
    write_both(false);
    write_both(true);
    EXPECT_EQ(tables.設定読込(u"kihon"_s, u"和西暦表示"_s), u"1"_s);
}

TEST_F(Settings, WithoutATableOrAKeyNothingIsReadOrWritten) {
    tables.設定書込(QString(), u"鍵"_s, u"1"_s);
    EXPECT_EQ(tables.設定読込(QString(), u"鍵"_s), QString());
    tables.設定書込(u"kihon"_s, QString(), u"1"_s);
    OpenSettings kihon = tables.open(u"kihon"_s);
    kihon.設定書込(QString(), u"1"_s);
    EXPECT_EQ(kihon.設定読込(QString()), QString());
}

class StartOnData : public testing::Test {
protected:
    StartOnData() { tree.settings.install_drive = u"/c"_s; }

    TestTree tree;
    SettingTables tables{tree.settings};

    QStringList register_rows() {
        return support::rows_of(
            allsystem_path(tree.settings), Kind::Allsystem, "select * from allsystem order by rowid");
    }

    QString row() const { return u"R240|03|%1|rovdata.mdb"_s.arg(receiver_path(tree.settings)); }
};

TEST_F(StartOnData, TheFirstStartRegistersTheProductAndTheSecondWritesNothing) {
    EXPECT_TRUE(初期セットアップ(tree.settings));
    EXPECT_EQ(register_rows(), QStringList()) << "a start that failed";
    初期セットアップ(tree.settings)->stand();
    EXPECT_EQ(register_rows(), QStringList{row()});
    const QByteArray before = support::bytes_of(allsystem_path(tree.settings));
    EXPECT_FALSE(初期セットアップ(tree.settings));
    EXPECT_EQ(support::bytes_of(allsystem_path(tree.settings)), before);
}

TEST_F(StartOnData, AMovedProgramIsFollowedByItsReceiver) {
    初期セットアップ(tree.settings)->stand();
    tree.settings.install_drive = u"/d"_s;
    EXPECT_FALSE(初期セットアップ(tree.settings));
    EXPECT_EQ(register_rows(), QStringList{row()});
    EXPECT_TRUE(platform::portable(receiver_path(tree.settings)).startsWith(u"/d"_s));
}

TEST_F(StartOnData, TheFirstRowWithOurLetterIsOursAndOthersStayAsTheyAre) {
    Database::open(allsystem_path(tree.settings), Kind::Allsystem)
        .exec("insert into allsystem values ('H100', '09', 'h', 'other.mdb'), ('R200', '01', 'old', 'other.mdb'),"
              " ('R240', '01', 'old', 'other.mdb')");
    EXPECT_FALSE(初期セットアップ(tree.settings));
    const QString ours = row().replace(u"rovdata.mdb"_s, u"other.mdb"_s); // its file stays
    EXPECT_EQ(register_rows(), QStringList({u"H100|09|h|other.mdb"_s, ours, u"R240|01|old|other.mdb"_s}));
}

TEST_F(StartOnData, TheStampIsStoredOnceAndKeepsTheOtherDatabasesClosed) {
    Database::open(comsys_path(tree.settings), Kind::Comsys).exec("create table gen_ari (x); drop table syain");
    EXPECT_EQ(db追加_テーブル(tree.settings, tables), QStringList{u"gen_ari"_s});
    EXPECT_EQ(tables.設定読込(u"rov_kihon"_s, u"sokdataバージョン"_s), u"2006041301"_s);
    EXPECT_TRUE(Database::open(comsys_path(tree.settings), Kind::Comsys).has_table(u"syain"_s));

    ASSERT_TRUE(QFile::remove(comsys_path(tree.settings)));
    EXPECT_EQ(db追加_テーブル(tree.settings, tables), QStringList{});
    tables.設定書込(u"rov_kihon"_s, u"sokdataバージョン"_s, u"2005010101"_s);
    EXPECT_EQ(code_of([this] { db追加_テーブル(tree.settings, tables); }), Code::Missing);
    EXPECT_EQ(tables.設定読込(u"rov_kihon"_s, u"sokdataバージョン"_s), u"2005010101"_s) << "not stamped by a failure";
}

} // namespace
