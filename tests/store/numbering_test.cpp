#include "error_code.h"
#include "store/numbering.h"
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

} // namespace
