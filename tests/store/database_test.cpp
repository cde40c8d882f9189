#include "error_code.h"
#include "store/database.h"
#include "store/key.h"
#include "store/schema.h"
#include "test_tree.h"

#include <QProcess>
#include <QStandardPaths>

using namespace base;
using namespace store;

namespace {

constexpr Kind all_kinds[]{Kind::Comsys, Kind::Allsystem, Kind::Rovdata, Kind::Losys, Kind::Exchange};

class ADatabase : public testing::Test {
protected:
    QTemporaryDir folder;
    const QString path = folder.filePath(u"勤怠 data.mdb"_s);

    static QByteArray bytes_of(const QString& file_path) {
        QFile file(file_path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

TEST_F(ADatabase, HoldsEveryTableAndFieldOfItsKind) {
    for (const Kind kind : all_kinds) {
        Database database = Database::create(folder.filePath(QString::number(int(kind))), kind);
        for (const Table& table : tables_of(kind)) {
            Statement all = database.prepare(u"select * from \"%1\""_s.arg(table.name).toStdString());
            ASSERT_EQ(all.row().columns(), int(table.fields.size())) << table.name.toUtf8().toStdString();
            for (size_t i = 0; i < table.fields.size(); ++i)
                EXPECT_EQ(all.row().name(int(i)), table.fields[i].name);
        }
    }
    Database exchange = Database::open(folder.filePath(QString::number(int(Kind::Exchange))), Kind::Exchange);
    Statement posted = exchange.prepare("select * from jyusin");
    EXPECT_EQ(posted.row().columns(), 49);
    EXPECT_EQ(posted.row().name(48), u"49"_s);
}

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
    const QByteArray before = bytes_of(path);
    EXPECT_EQ(code_of([this] { Database::create(path, Kind::Losys); }), Code::Exists);
    EXPECT_EQ(bytes_of(path), before);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

TEST_F(ADatabase, NewFilesShareTheSaltSoThatOneKeyOpensThemAll) {
    QSet<QByteArray> salts;
    for (const Kind kind : all_kinds)
        salts.insert(empty_database_image(kind).left(16));
    EXPECT_EQ(salts.size(), 1);
}

TEST_F(ADatabase, OpensWhetherItsKeyWasBegunAheadOrCouldNotBe) {
    EXPECT_FALSE(derive_ahead(path).joinable()) << "there is no file";
    { Database made = Database::create(path, Kind::Comsys); }
    const std::jthread key = derive_ahead(path);
    EXPECT_TRUE(key.joinable());
    EXPECT_EQ(code_of([this] { Database::open(path, Kind::Comsys); }), std::nullopt);
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

TEST_F(ADatabase, ReadsNullAndEmptyAsNothing) {
    Database database = Database::create(path, Kind::Rovdata);
    database.exec("insert into rovmei (社員システム番号, 出社時間) values (1, '')");
    Statement row = database.prepare("select 出社時間, 退社時間, 備考 from rovmei");
    ASSERT_TRUE(row.step());
    EXPECT_EQ(row.row().number(0), 0);
    EXPECT_EQ(row.row().number(1), 0);
    EXPECT_EQ(row.row().text(2), QString());
    EXPECT_FALSE(row.row().is_null(0));
    EXPECT_TRUE(row.row().is_null(2));
}

TEST_F(ADatabase, TakesBoundTextAsItIs) {
    Database database = Database::create(path, Kind::Rovdata);
    const QString remark = u"O'Neil \"部長\"; drop table rovmei; 𠮷"_s;
    Statement add = database.prepare("insert into rovmei (社員システム番号, 備考) values (?, ?)");
    add.bind(1, remark).run();
    add.bind(2, QString()).run();
    Statement read = database.prepare("select 備考 from rovmei where 社員システム番号=?");
    ASSERT_TRUE(read.bind(1).step());
    EXPECT_EQ(read.row().text(0), remark);
    ASSERT_TRUE(read.bind(2).step());
    EXPECT_FALSE(read.row().is_null(0)) << "empty text is text";
}

TEST_F(ADatabase, ForgetsWhatATransactionDidWithoutCommit) {
    Database database = Database::create(path, Kind::Comsys);
    {
        const Transaction transaction(database);
        database.exec("insert into bangou values ('x', 1)");
    }
    EXPECT_EQ(number_from(database, "select count(*) from bangou"), 0);
    Transaction transaction(database);
    database.exec("insert into bangou values ('y', 1)");
    transaction.commit();
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
    const char* const month_of_an_employee = "%社員システム番号=? AND %>? AND %<?%";
    const std::pair<const char*, const char*> queries[]{
        {"select * from rovmei where 社員システム番号=? and 出社日>=? and 出社日<=? order by 出社日",
            month_of_an_employee},
        {"select * from kinjisyu where 社員システム番号=? and 年月日>=? and 年月日<=? order by 年月日",
            month_of_an_employee},
        {"select * from kyumei where 社員システム番号=? and 年月日>=? and 年月日<=? order by 年月日",
            month_of_an_employee},
        {"select * from kinnisu where 年月=? and 社員システム番号=?", "%社員システム番号=? AND 年月=?%"},
        {"delete from kinjisyu where 社員システム番号=? and 年月日=?", "%社員システム番号=? AND 年月日=?%"},
        {"select * from syainkinmu where システム社員番号=?", "%システム社員番号=?%"},
        {"select * from kintype, kinsyu where kintype.システム番号=? and kinsyu.システム番号=時間種類 order by 曜日, "
         "連番",
            "%kintype_key (システム番号=?)%kinsyu_key (システム番号=?)"},
        {"select * from rovmei where 社員システム番号>=? and 社員システム番号<=? and 出社日>=? order by "
         "社員システム番号",
            "%rovmei_key (社員システム番号>?%"},
        {"select データ from rov_kihon where 項目名=? order by rowid limit 1", "%項目名=?%"},
    };
    Statement like = database.prepare("select ? like ?");
    for (const auto& [query, pattern] : queries) {
        QStringList plan;
        Statement explain = database.prepare(std::string("explain query plan ") + query);
        while (explain.step())
            plan << explain.row().text(3);
        ASSERT_TRUE(like.bind(plan.join(u' '), QString::fromUtf8(pattern)).step());
        EXPECT_EQ(like.row().number(0), 1) << query << ": " << plan.join(u' ').toStdString();
        EXPECT_FALSE(plan.join(u' ').contains(u"SCAN"_s) || plan.join(u' ').contains(u"TEMP"_s)) << query;
    }
}

} // namespace
