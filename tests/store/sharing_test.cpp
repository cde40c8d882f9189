#include "children.h"
#include "platform/whole_file.h"
#include "store/database.h"
#include "store/numbering.h"
#include "support/stored.h"
#include "test_tree.h"

#include <QSet>
#include <list>

using namespace base;
using namespace store;

namespace {

class SharedDatabase : public testing::Test {
protected:
    const TestTree tree;
    const QString path = comsys_path(tree.settings);

    Database open() { return Database::open(path, Kind::Comsys, std::chrono::milliseconds(50)); }

    /// Leaves a file of many rows in the middle of a commit, as a power failure does: the first pages may be torn.
    void leave_half_done(qint64 torn_bytes) {
        if (Database database = open(); number_from(database, "select count(*) from syain") == 0)
            add_employees(database, 3000);
        Child writer({u"die"_s, path});
        ASSERT_EQ(writer.line(), "ready");
        writer.kill();
        ASSERT_GT(QFileInfo(path + u"-journal"_s).size(), 0) << "pages must have reached the file";
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.write(QByteArray(torn_bytes, 'x')) == torn_bytes);
    }
};

TEST_F(SharedDatabase, FourProgramsDrawTenThousandNumbersAndAllDiffer) {
    constexpr int programs = 4, each = 2500;
    const TestTree shared(support::fast_place());
    std::list<Child> children;
    for (int i = 0; i < programs; ++i)
        children.emplace_back(QStringList{u"number"_s, shared.settings.server_root, QString::number(each)});
    QSet<int> drawn;
    for (Child& child : children)
        for (const QByteArray& line : child.all_lines())
            drawn.insert(line.toInt());
    EXPECT_EQ(drawn.size(), programs * each);
    EXPECT_EQ(*std::ranges::max_element(drawn), programs * each);
}

TEST_F(SharedDatabase, ASecondWriterIsToldThatAnotherOneIsWriting) {
    Database first = open();
    Database second = open();
    Transaction writing(first);
    EXPECT_EQ(code_of([&] { Transaction(second).commit(); }), Code::Busy);
    EXPECT_EQ(number_from(second, "select count(*) from bangou"), 0) << "reading goes on";
    writing.commit();
    {
        const Transaction forgotten(second);
        second.exec("insert into bangou values ('x', 1)");
    }
    EXPECT_EQ(number_from(second, "select count(*) from bangou"), 0) << "what isn't committed is undone";
}

TEST_F(SharedDatabase, OpeningAndClosingAnotherConnectionTakesNoLockAway) {
    Database writer = open();
    Transaction writing(writer);
    { Database passing = open(); }
    EXPECT_EQ(Child({u"write"_s, path}).line(), QByteArray::number(int(Code::Busy)));
    writing.commit();
    EXPECT_EQ(Child({u"write"_s, path}).line(), "done");
}

TEST_F(SharedDatabase, AnExclusiveTransactionKeepsReadersOut) {
    Database reader = open();
    Database writer = open();
    const Transaction alone(writer, Transaction::Lock::Exclusive);
    EXPECT_EQ(code_of([&] { number_from(reader, "select count(*) from bangou"); }), Code::Busy);
}

TEST_F(SharedDatabase, WhatAKilledWriterLeftHalfDoneIsUndoneByTheNextOpening) {
    for (const qint64 torn_bytes : {0, 7, 5000}) {
        leave_half_done(torn_bytes);
        Database database = open();
        EXPECT_EQ(number_from(database, "select count(*) from syain where フリガナ='シャイン'"), 3000);
        EXPECT_FALSE(QFileInfo::exists(path + u"-journal"_s));
    }
}

TEST_F(SharedDatabase, AJournalWithoutItsFileIsNotPlayedIntoANewOne) {
    leave_half_done(0);
    const QByteArray journal = support::bytes_of(path + u"-journal"_s);
    ASSERT_TRUE(QFile::remove(path));
    Database database = Database::create(path, Kind::Comsys);
    EXPECT_EQ(number_from(database, "select count(*) from syain"), 0);
    const QStringList kept = QDir(QFileInfo(path).path()).entryList({u"comsys-*.mdb-journal"_s});
    ASSERT_EQ(kept.size(), 1);
    EXPECT_EQ(support::bytes_of(QFileInfo(path).path() + u'/' + kept.first()), journal);
}

TEST_F(SharedDatabase, TellsFromOutsideWhetherItWasWrittenSince) {
    Database reader = open();
    Database writer = open();
    const auto state = [&] {
        const Transaction view(reader, Transaction::Lock::Read);
        number_from(reader, "select count(*) from bangou");
        return reader.state();
    };
    const auto write = [&](bool commit) {
        Transaction writing(writer);
        writer.exec("insert into bangou values ('x', 1)");
        EXPECT_FALSE(stands_at(path, state())) << "somebody is writing";
        if (commit)
            writing.commit();
    };
    const QByteArray before = state();
    EXPECT_TRUE(stands_at(path, before));
    write(false);
    EXPECT_TRUE(stands_at(path, before)) << "nothing came of it";
    write(true);
    EXPECT_FALSE(stands_at(path, before));
    EXPECT_TRUE(stands_at(path, state()));
    writer.exec("delete from bangou where 番号名称='x'");
    EXPECT_FALSE(stands_at(path, before)) << "not even if all rows are as they were";
    for (const QByteArray& none : {reader.state(), QByteArray()})
        EXPECT_FALSE(stands_at(path, none)) << "outside a transaction there is no state";
}

TEST_F(SharedDatabase, StandsAtNoStateWhileAWriteIsHalfDoneOrTheFileIsAway) {
    leave_half_done(0);
    QByteArray state = support::bytes_of(path).left(48);
    EXPECT_FALSE(stands_at(path, state));
    Database database = open();
    const Transaction view(database, Transaction::Lock::Read);
    number_from(database, "select count(*) from bangou");
    state = database.state();
    EXPECT_TRUE(stands_at(path, state));
    EXPECT_FALSE(stands_at(path + u"x"_s, state));
}

TEST_F(SharedDatabase, AFileReplacedWhileItStandsOpenIsNotWritten) {
    if (!platform::open_files_can_move)
        GTEST_SKIP() << "a file that is open keeps its name here";
    const QString beside = tree.folder.filePath(u"beside.mdb"_s);
    { Database other = Database::create(beside, Kind::Comsys); }
    Database database = open();
    ASSERT_TRUE(QFile::remove(path) && QFile::rename(beside, path));
    EXPECT_EQ(code_of([&] { Transaction transaction(database); }), Code::Replaced);
    EXPECT_EQ(code_of([&] { Transaction transaction(database); }), Code::Replaced) << "the failed one holds no lock";
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_EQ(code_of([&] { Transaction transaction(database); }), Code::Replaced) << "a file that went away";
}

} // namespace
