// What the programs keep in small tables: counters, settings, and the register of the products.

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
    for (const auto& [counter, number] :
        {std::pair(u"勤務種類"_s, 1), {u"勤務種類"_s, 2}, {u"休暇種類"_s, 1}, {u"勤務種類"_s, 3}})
        EXPECT_EQ(採番(tree.settings, counter), number);
    EXPECT_EQ(number_from(comsys, "select count(*) from bangou"), 2);
}

TEST_F(Comsys, ACounterThatIsBehindTheTablesGivesNoNumberThatIsInUse) {
    Database::open(rovdata_path(tree.settings), Kind::Rovdata)
        .exec("insert into kinsyu values (1, '夜'), (3, '朝'); insert into kinjisyu (勤務種類) values (6);"
              "insert into kintype (システム番号, 時間種類) values (3, 7);"
              "insert into rovmei (社員システム番号) values (12), (13)");
    comsys.exec("insert into bangou values ('勤務時間', 2), ('休暇種類', 8), ('社員番号', 11)");
    // Of the categories, attendance of what was deleted counts.
    for (const auto& [counter, number] :
        {std::pair(u"勤務種類"_s, 8), {u"勤務時間"_s, 4}, {u"休暇種類"_s, 9}, {u"社員番号"_s, 14}, {u"社員番号"_s, 15}})
        EXPECT_EQ(採番(tree.settings, counter), number) << counter.toStdString();
}

TEST_F(Comsys, ALookupGivesTheFieldsOfTheFirstRowWithTheKey) {
    comsys.exec(
        "insert into syain values (3, 12, '山田', 'ヤマダ', 'a', null, ''), (4, 12, '佐藤', 'サトウ', '', '', '')");
    const QString table = u"syain"_s, key = u"社員番号"_s, name = u"社員名"_s;
    EXPECT_EQ(look_up(table, key, u" 12 "_s, {u"システム番号"_s, name, {}, u"第２グループ"_s, u"フリガナ"_s}),
        (Fields{u"3"_s, u"山田"_s, {}, {}, u"ヤマダ"_s}));
    const std::array<QString, 4> nothing[] = {{table, key, u"99"_s, name}, {QString(), key, u"12"_s, name},
        {table, u" "_s, u"12"_s, name}, {table, key, u" "_s, name}, {table, key, u"12"_s, QString()}};
    for (const auto& [in, by, what, field] : nothing)
        EXPECT_EQ(look_up(in, by, what, {field}), Fields()) << (in + by + what + field).toStdString();
    const std::array<QString, 3> misuses[] = {
        {u"tokui"_s, key, name}, {table, u"社員番号\" or 1 or \""_s, name}, {table, key, u"住所"_s}};
    for (const auto& [in, by, field] : misuses)
        EXPECT_EQ(code_of([&] { look_up(in, by, u"12"_s, {field}); }), Code::Misuse) << (in + by + field).toStdString();
}

class Settings : public testing::Test {
protected:
    TestTree tree;
    SettingTables tables{tree.settings};
};

TEST_F(Settings, AKeyThatIsntThereReadsEmptyAndIsAddedByTheFirstWriteToTheFileOfItsTable) {
    const QStringList names{u"losystem"_s, u"rov_kihon"_s, u"kihon"_s};
    const QString key = u"a'b\""_s; // a quote in a key is a character
    EXPECT_EQ(tables.設定読込(names[0], key), QString());
    for (const QString& data : {u"1"_s, u"2"_s})
        for (const QString& table : names)
            tables.設定書込(table, key, table + data);
    for (const QString& table : names)
        EXPECT_EQ(tables.設定読込(table, key), table + u'2');
    EXPECT_EQ(support::rows_of(losys_path(tree.settings), Kind::Losys, "select データ from losystem"),
        QStringList{u"losystem2"_s});
    EXPECT_EQ(support::rows_of(rovdata_path(tree.settings), Kind::Rovdata, "select データ from rov_kihon"),
        QStringList{u"rov_kihon2"_s});
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
    EXPECT_EQ(code_of([this] { tables.設定書込(u"other"_s, u"鍵"_s, u"1"_s); }), Code::Misuse);
}

TEST(SystemErrors, AreToldAsWhatAPersonCanMend) {
    for (const auto& [failure, code] : {std::pair(std::errc::file_exists, Code::Exists),
             {std::errc::no_space_on_device, Code::Full}, {std::errc::file_too_large, Code::Full},
             {std::errc::read_only_file_system, Code::ReadOnly}, {std::errc::permission_denied, Code::ReadOnly},
             {std::errc::io_error, Code::Io}, {std::errc::timed_out, Code::Other}})
        EXPECT_EQ(code_of([&] { check_system(std::make_error_code(failure), u"/x"_s); }), code) << int(failure);
    EXPECT_EQ(code_of([] { check_system({}, u"/x"_s); }), std::nullopt);
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
    tree.settings.install_drive = u"/d"_s;
    EXPECT_FALSE(初期セットアップ(tree.settings));
    EXPECT_EQ(register_rows(), QStringList{row()}) << "the receiver follows a program that was moved";
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
    Database::open(comsys_path(tree.settings), Kind::Comsys).exec("create table gen_ari (x text); drop table syain");
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
