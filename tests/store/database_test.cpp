#include "store/database.h"
#include "store/key.h"
#include "store/schema.h"
#include "support/stored.h"
#include "test_tree.h"

#include <QProcess>
#include <QStandardPaths>

using namespace base;
using namespace store;

namespace {

class ADatabase : public testing::Test {
protected:
    QTemporaryDir folder;
    const QString path = folder.filePath(u"勤怠 data.mdb"_s);
};

TEST_F(ADatabase, OpensInTheStockToolWithThePasswordAndThePageSize) {
    const QString tool = QStandardPaths::findExecutable(u"sqlcipher"_s);
    if (tool.isEmpty())
        GTEST_SKIP() << "the tool isn't installed";
    Database::create(path, Kind::Comsys).exec("insert into bangou values ('社員番号', 7)");
    QProcess process;
    process.start(tool, {path, u"PRAGMA key='mzlart'; PRAGMA cipher_page_size=4096; select * from bangou;"_s});
    process.waitForFinished();
    EXPECT_EQ(process.readAllStandardOutput().trimmed(), "社員番号|7");
}

TEST_F(ADatabase, IsNotMadeWhereAFileStands) {
    { Database first = Database::create(path, Kind::Comsys); }
    const QByteArray before = support::bytes_of(path);
    EXPECT_EQ(code_of([this] { Database::create(path, Kind::Losys); }), Code::Exists);
    EXPECT_EQ(support::bytes_of(path), before);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

TEST_F(ADatabase, SharesTheSaltWithOtherNewOnesAndItsKeyIsBegunAheadOnceItIsThere) {
    EXPECT_EQ(empty_database_image(Kind::Rovdata).left(16), empty_database_image(Kind::Exchange).left(16));
    EXPECT_FALSE(derive_ahead(path).joinable());
    { Database made = Database::create(path, Kind::Comsys); }
    const std::jthread key = derive_ahead(path);
    EXPECT_TRUE(key.joinable());
    EXPECT_EQ(code_of([this] { Database::open(path, Kind::Comsys); }), std::nullopt);
}

TEST_F(ADatabase, TakesBoundTextAsItIsAndReadsNullAsNothing) {
    Database database = Database::create(path, Kind::Rovdata);
    const QString remark = u"O'Neil \"部長\"; drop table rovmei; 𠮷"_s;
    database.prepare("insert into rovmei (備考, 出社日) values (?, ?)").bind(remark, QString()).run();
    Statement stored = database.prepare("select 備考, 出社日, 出社時間 from rovmei");
    ASSERT_TRUE(stored.step());
    EXPECT_EQ(stored.row().text(0) + stored.row().text(2), remark);
    EXPECT_EQ(stored.row().number(1) + stored.row().number(2), 0);
    EXPECT_FALSE(stored.row().is_null(1)) << "empty text is text";
    EXPECT_TRUE(stored.row().is_null(2));
}

TEST_F(ADatabase, KeepsNoWriteAheadLogAndWaitsForTheDisk) {
    Database::create(path, Kind::Comsys).exec("pragma journal_mode=wal; insert into bangou values ('x', 1)");
    Database database = Database::open(path, Kind::Comsys);
    Statement journal = database.prepare("pragma journal_mode");
    ASSERT_TRUE(journal.step());
    EXPECT_EQ(journal.row().text(0), u"delete"_s);
    EXPECT_EQ(number_from(database, "pragma synchronous"), 3);
    EXPECT_EQ(number_from(database, "select count(*) from bangou"), 1);
}

TEST_F(ADatabase, GetsTheTablesThatItLacksAndKeepsItsRows) {
    Database database = Database::create(path, Kind::Rovdata);
    database.exec(
        "insert into kinsyu values (1, '通常'); drop table kyumei; drop index rovmei_key; pragma user_version=0");
    add_missing_tables(database, Kind::Rovdata);
    EXPECT_TRUE(database.has_table(u"kyumei"_s));
    EXPECT_EQ(number_from(database, "select count(*) from sqlite_master where name='rovmei_key'"), 1);
    EXPECT_EQ(number_from(database, "select count(*) from kinsyu"), 1);
    EXPECT_EQ(number_from(database, "pragma user_version"), schema_version);
}

TEST_F(ADatabase, AnswersTheQueriesOfTheProgramFromItsIndexes) {
    Database database = Database::create(path, Kind::Rovdata);
    const std::string month_of_an_employee = "%社員システム番号=? AND %>? AND %<?%";
    const std::pair<std::string, std::string> queries[]{
        {"rovmei where 社員システム番号=? and 出社日>=? and 出社日<=? order by 出社日", month_of_an_employee},
        {"kinjisyu where 社員システム番号=? and 年月日>=? and 年月日<=? order by 年月日", month_of_an_employee},
        {"kyumei where 社員システム番号=? and 年月日>=? and 年月日<=? order by 年月日", month_of_an_employee},
        {"kinnisu where 年月=? and 社員システム番号=?", "%社員システム番号=? AND 年月=?%"},
        {"kinjisyu where 社員システム番号=? and 年月日=?", "%社員システム番号=? AND 年月日=?%"},
        {"syainkinmu where システム社員番号=?", "%システム社員番号=?%"},
        {"kintype, kinsyu where kintype.システム番号=? and kinsyu.システム番号=時間種類 order by 曜日, 連番",
            "%kintype_key (システム番号=?)%kinsyu_key (システム番号=?)"},
        {"rovmei where 社員システム番号>=? and 社員システム番号<=? and 出社日>=? order by 社員システム番号",
            "%rovmei_key (社員システム番号>?%"},
        {"rov_kihon where 項目名=? order by rowid limit 1", "%項目名=?%"},
    };
    Statement like = database.prepare("select ? like ? and ?1 not like '%SCAN%' and ?1 not like '%TEMP%'");
    for (const auto& [query, pattern] : queries) {
        QStringList plan;
        Statement explain = database.prepare("explain query plan select * from " + query);
        while (explain.step())
            plan << explain.row().text(3);
        ASSERT_TRUE(like.bind(plan.join(u' '), QString::fromStdString(pattern)).step());
        EXPECT_EQ(like.row().number(0), 1) << query << ": " << plan.join(u' ').toStdString();
    }
}

} // namespace
