#include "children.h"
#include "store/held.h"
#include "support/stored.h"
#include "test_tree.h"

using namespace base;
using namespace store;

namespace {

class HeldDatabase : public testing::Test {
protected:
    const TestTree tree;
    const QString path = comsys_path(tree.settings);
    const QString target = tree.folder.filePath(u"copy.mdb"_s);

    HeldDatabase() {
        Database database = Database::open(path, Kind::Comsys);
        add_employees(database, 2000);
        database.exec("delete from syain where システム番号 > 300");
        support::put_bytes(target, {});
    }
};

TEST_F(HeldDatabase, ACompactedCopyIsTheSameDatabaseWithoutTheRoomOfDeletedRows) {
    const qint64 before = QFileInfo(path).size();
    {
        Held held(path, Kind::Comsys);
        held.compact_into(target);
        check_copy(target, Kind::Comsys, held.rows());
        held.take_over(target);
    }
    EXPECT_EQ(support::bytes_of(target).left(16), support::bytes_of(path).left(16)) << "the salt, and so the key";
    EXPECT_LT(QFileInfo(path).size(), before / 2);
    EXPECT_FALSE(QFileInfo::exists(path + u"-journal"_s));
    Database database = open_checked(path, Kind::Comsys);
    EXPECT_EQ(number_from(database, "select sum(システム番号) from syain"), 300 * 301 / 2);
    EXPECT_EQ(number_from(database, "pragma user_version"), 1);
    EXPECT_GT(number_from(database, "select count(*) from sqlite_master where name='syain_key'"), 0);
}

TEST_F(HeldDatabase, OthersReadAndDoNotWriteUntilItIsLetGo) {
    {
        Held held(path, Kind::Comsys);
        Database reader = Database::open(path, Kind::Comsys, std::chrono::milliseconds(50));
        EXPECT_EQ(number_from(reader, "select count(*) from syain"), 300);
        held.compact_into(target);
        EXPECT_EQ(Child({u"write"_s, path}).line(), QByteArray::number(int(Code::Busy)));
        EXPECT_EQ(code_of([&] { Held(path, Kind::Comsys, std::chrono::milliseconds(50)); }), Code::Busy);
        held.copy_into(target);
        held.take_over(target);
        EXPECT_EQ(Child({u"write"_s, path}).line(), QByteArray::number(int(Code::Busy))) << "still held";
    }
    EXPECT_EQ(Child({u"write"_s, path}).line(), "done");
}

TEST_F(HeldDatabase, ACopyThatIsNotLikeItsSourceIsFound) {
    Held held(path, Kind::Comsys);
    held.copy_into(target);
    check_copy(target, Kind::Comsys, held.rows());
    const auto checked = [&] { return code_of([&] { check_copy(target, Kind::Comsys, held.rows()); }); };
    Database::open(target, Kind::Comsys).exec("delete from syain where システム番号=7");
    EXPECT_EQ(checked(), Code::Damaged) << "a row less";
    held.copy_into(target);
    Database::open(target, Kind::Comsys).exec("drop index syain_key");
    EXPECT_EQ(checked(), Code::Damaged) << "an index less";
    held.copy_into(target);
    support::put_bytes(target, support::bytes_of(target).replace(4096 * 9 + 5, 1, "x"));
    EXPECT_EQ(checked(), Code::Damaged) << "a byte in a page of rows";
}

} // namespace
