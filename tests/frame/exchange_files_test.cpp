#include "frame/exchange_files.h"
#include "frame/kept_files.h"

#include "base/literals.h"
#include "store/database.h"
#include "store/files.h"
#include "support/stored.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace base;
using namespace std::chrono_literals;
using store::Code;
using store::Database;
using store::Kind;

class ExchangeFiles : public ::testing::Test {
protected:
    ExchangeFiles() { settings.server_root = dir.path(); }

    void remake() {
        frame::交換ファイル作成(
            settings, start, [this](const QString& message) { told << message; }, 50ms);
    }
    QString path(int number) const { return store::exchange_path(settings, number); }
    static Database open(const QString& file) { return Database::open(file, Kind::Exchange, 50ms); }

    static void post(const QString& file, const QString& text) {
        Database database = open(file);
        database.prepare("insert into jyusin (\"1\") values (?)").bind(text).run();
    }
    static QStringList rows(const QString& file) {
        return support::rows_of(file, Kind::Exchange, "select \"1\" from jyusin");
    }
    QStringList kept() const { return QDir(frame::kept_folder(settings)).entryList(QDir::Files, QDir::Name); }
    QString kept_path(const QString& name) const { return frame::kept_folder(settings) + u'/' + name; }

    QTemporaryDir dir;
    base::Settings settings;
    QStringList told;
    QDateTime start{QDate(2004, 10, 5), QTime(9, 0, 1, 7)};
};

TEST_F(ExchangeFiles, TwentyFilesStandReadyAndEmpty) {
    remake();
    remake();
    EXPECT_EQ(QDir(store::exchange_folder(settings)).entryList(QDir::Files).size(), 20);
    EXPECT_TRUE(path(1).endsWith(u"/comdata/data/jyusin/hanjyusin01.mdb"_s));
    for (int number = 1; number <= 20; ++number)
        EXPECT_TRUE(rows(path(number)).isEmpty()) << number;
    EXPECT_TRUE(kept().isEmpty());

    Database file = open(path(20));
    file.exec("insert into jyusin (\"1\", \"49\") values ('', '')");
}

TEST_F(ExchangeFiles, RowsThatNobodyTookOrThatCouldNotBeAppliedAreKept) {
    remake();
    post(path(1), u"51"_s);
    open(path(7)).exec("insert into jyusin_error (\"1\", 理由) values ('99', 'x')");
    remake();
    EXPECT_TRUE(rows(path(1)).isEmpty());
    EXPECT_EQ(
        kept(), QStringList({u"hanjyusin01-20041005-090001-007.mdb"_s, u"hanjyusin07-20041005-090001-007.mdb"_s}));
    EXPECT_EQ(rows(kept_path(kept()[0])), QStringList(u"51"_s));

    post(path(1), u"54"_s);
    remake();
    EXPECT_EQ(kept().size(), 3) << "a name that is taken stays as it is";
    EXPECT_EQ(rows(kept_path(u"hanjyusin01-20041005-090001-008.mdb"_s)), QStringList(u"54"_s));

    start = start.addSecs(-180);
    post(path(1), u"55"_s);
    remake();
    EXPECT_EQ(rows(kept_path(u"hanjyusin01-20041005-090001-009.mdb"_s)), QStringList(u"55"_s))
        << "of a PC with a slow clock";
}

TEST_F(ExchangeFiles, AFileThatWasUsedIsRemadeSmallAndOneThatIsAsNewStays) {
    remake();
    const qint64 size = QFileInfo(path(1)).size();
    open(path(1)).exec("begin; insert into jyusin (\"1\") values (hex(zeroblob(100000))); delete from jyusin; commit");
    open(path(2)).exec("create table other (x)");
    const QByteArray third = support::bytes_of(path(3));
    ASSERT_GT(QFileInfo(path(1)).size(), size);
    remake();
    EXPECT_EQ(QFileInfo(path(1)).size(), size);
    EXPECT_FALSE(open(path(2)).has_table(u"other"_s));
    EXPECT_EQ(support::bytes_of(path(3)), third);
    EXPECT_TRUE(kept().isEmpty());
}

TEST_F(ExchangeFiles, AFileThatCannotBeReadIsKeptWholeAndTold) {
    remake();
    const QByteArray noise(5000, 'x');
    support::put_bytes(path(3), noise);
    support::put_bytes(path(3) + u"-journal"_s, {});
    support::put_bytes(path(4), "plain");
    support::put_bytes(path(5), {});
    support::put_bytes(path(6), support::bytes_of(path(6)).replace(0, 4096, QByteArray(4096, 'x')));
    open(path(7)).exec("drop table jyusin");
    remake();
    for (int number = 3; number <= 7; ++number)
        EXPECT_TRUE(rows(path(number)).isEmpty()) << number;
    const QString moved = u"hanjyusin03-20041005-090001-007.mdb.kowareta"_s;
    EXPECT_EQ(kept(),
        QStringList({moved, moved + u"-journal"_s, u"hanjyusin04-20041005-090001-007.mdb.kowareta"_s,
            u"hanjyusin05-20041005-090001-007.mdb.kowareta"_s, u"hanjyusin06-20041005-090001-007.mdb.kowareta"_s,
            u"hanjyusin07-20041005-090001-007.mdb.kowareta"_s}));
    ASSERT_EQ(told.size(), 5);
    EXPECT_TRUE(told[0].contains(moved)) << told[0].toStdString();
    EXPECT_EQ(support::bytes_of(kept_path(moved)), noise);
    EXPECT_FALSE(QFile::exists(path(3) + u"-journal"_s));
}

TEST_F(ExchangeFiles, WhoHasTheFileOpenGoesOnInTheRemadeOne) {
    remake();
    post(path(1), u"51"_s);
    Database early = open(path(1));
    remake();
    store::Transaction posting(early);
    early.exec("insert into jyusin (\"1\") values ('52')");
    posting.commit();
    EXPECT_EQ(rows(path(1)), QStringList(u"52"_s));
    EXPECT_EQ(rows(kept_path(kept().value(0))), QStringList(u"51"_s));
}

TEST_F(ExchangeFiles, AJournalThatLostItsFileIsPutAwayAndTold) {
    remake();
    QFile::rename(path(2), path(2) + u"-journal"_s);
    remake();
    EXPECT_TRUE(rows(path(2)).isEmpty());
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(told[0].contains(u"hanjyusin02-"_s)) << told[0].toStdString();
}

TEST_F(ExchangeFiles, AFileInTheMiddleOfASaveIsNotTakenAway) {
    remake();
    post(path(2), u"51"_s);
    Database holding_rows = open(path(2)), as_new_so_far = open(path(3));
    for (Database* writer : {&holding_rows, &as_new_so_far}) {
        store::Transaction posting(*writer);
        writer->exec("insert into jyusin (\"1\") values ('52')");
        std::optional<store::Error> trouble;
        try {
            remake();
        } catch (const store::Error& error) {
            trouble = error;
        }
        EXPECT_EQ(trouble.has_value(), writer == &holding_rows) << "the start needn't wait for the other one";
        EXPECT_TRUE(!trouble || (trouble->code() == Code::Busy && trouble->file() == path(2)));
        posting.commit();
    }
    EXPECT_EQ(kept().size(), 1) << "the rows of file 2, once its save was through";
    EXPECT_EQ(rows(kept_path(kept()[0])), QStringList({u"51"_s, u"52"_s}));
    EXPECT_EQ(rows(path(3)), QStringList(u"52"_s));
}
