#include "error_code.h"
#include "platform/paths.h"
#include "store/setup.h"
#include "support/stored.h"
#include "test_tree.h"

using namespace base;
using namespace store;

namespace {

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
