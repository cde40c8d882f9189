#include "error_code.h"
#include "platform/paths.h"
#include "store/setup.h"
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
        Database allsystem = Database::open(allsystem_path(tree.settings), Kind::Allsystem);
        Statement statement = allsystem.prepare("select * from allsystem order by rowid");
        QStringList rows;
        while (statement.step())
            rows << QStringList{statement.row().text(0), statement.row().text(1), statement.row().text(2),
                statement.row().text(3)}
                        .join(u'|');
        return rows;
    }

    QString row_of(const QString& code, const QString& version) {
        return QStringList{code, version, receiver_path(tree.settings), u"rovdata.mdb"_s}.join(u'|');
    }

    void register_product(const QString& code, const QString& version, const QString& receiver) {
        Database allsystem = Database::open(allsystem_path(tree.settings), Kind::Allsystem);
        allsystem.prepare("insert into allsystem values (?, ?, ?, 'other.mdb')").bind(code, version, receiver).run();
    }

    static QByteArray bytes_of(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

TEST_F(StartOnData, TheFirstStartRegistersTheProductAndTheSecondWritesNothing) {
    EXPECT_TRUE(初期セットアップ(tree.settings));
    EXPECT_EQ(register_rows(), QStringList()) << "a start that failed";
    初期セットアップ(tree.settings)->stand();
    EXPECT_EQ(register_rows(), QStringList{row_of(u"R240"_s, u"03"_s)});
    const QByteArray before = bytes_of(allsystem_path(tree.settings));
    EXPECT_FALSE(初期セットアップ(tree.settings));
    EXPECT_EQ(bytes_of(allsystem_path(tree.settings)), before);
}

TEST_F(StartOnData, AMovedProgramIsFollowedByItsReceiver) {
    初期セットアップ(tree.settings)->stand();
    tree.settings.install_drive = u"/d"_s;
    EXPECT_FALSE(初期セットアップ(tree.settings));
    EXPECT_EQ(register_rows(), QStringList{row_of(u"R240"_s, u"03"_s)});
    EXPECT_TRUE(platform::portable(receiver_path(tree.settings)).startsWith(u"/d"_s));
}

TEST_F(StartOnData, TheFirstRowWithOurLetterIsOursAndOthersStayAsTheyAre) {
    register_product(u"H100"_s, u"09"_s, u"h"_s);
    register_product(u"R200"_s, u"01"_s, u"old"_s);
    register_product(u"R240"_s, u"01"_s, u"old"_s);
    EXPECT_FALSE(初期セットアップ(tree.settings));
    const QStringList rows = register_rows();
    ASSERT_EQ(rows.size(), 3);
    EXPECT_EQ(rows[0], u"H100|09|h|other.mdb"_s);
    EXPECT_EQ(rows[1], row_of(u"R240"_s, u"03"_s).replace(u"rovdata.mdb"_s, u"other.mdb"_s)) << "its file stays";
    EXPECT_EQ(rows[2], u"R240|01|old|other.mdb"_s);
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
