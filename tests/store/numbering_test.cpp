#include "error_code.h"
#include "store/numbering.h"
#include "test_tree.h"

using namespace base;
using namespace store;

namespace {

class Comsys : public testing::Test {
protected:
    TestTree tree;
    Database comsys = Database::open(comsys_path(tree.settings), Kind::Comsys);

    std::array<QString, 7> look_up(
        const QString& table, const QString& key_field, const QString& key, const std::array<QString, 7>& fields) {
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
    const auto found = look_up(
        u"syain"_s, u"社員番号"_s, u" 12 "_s, {u"システム番号"_s, u"社員名"_s, {}, u"第２グループ"_s, u"フリガナ"_s});
    EXPECT_EQ(found, (std::array<QString, 7>{u"3"_s, u"山田"_s, QString(), QString(), u"ヤマダ"_s}));
    EXPECT_EQ(look_up(u"syain"_s, u"社員番号"_s, u"99"_s, {u"社員名"_s}), (std::array<QString, 7>{}));
}

TEST_F(Comsys, ALookupWithoutTableKeyOrFieldsGivesNothing) {
    comsys.exec("insert into syain values (3, 12, '山田', 'ヤマダ', '', '', '')");
    const std::array<QString, 7> nothing;
    EXPECT_EQ(look_up({}, u"社員番号"_s, u"12"_s, {u"社員名"_s}), nothing);
    EXPECT_EQ(look_up(u"syain"_s, u" "_s, u"12"_s, {u"社員名"_s}), nothing);
    EXPECT_EQ(look_up(u"syain"_s, u"社員番号"_s, u" "_s, {u"社員名"_s}), nothing);
    EXPECT_EQ(look_up(u"syain"_s, u"社員番号"_s, u"12"_s, {}), nothing);
}

TEST_F(Comsys, ALookupInAnUnknownTableOrFieldIsAFaultOfTheProgram) {
    comsys.exec("insert into syain values (3, 12, '山田', 'ヤマダ', '', '', '')");
    for (const auto& [table, key_field, field] : {std::tuple{u"tokui"_s, u"社員番号"_s, u"社員名"_s},
             {u"syain"_s, u"社員番号\" or 1 or \""_s, u"社員名"_s}, {u"syain"_s, u"社員番号"_s, u"住所"_s}})
        EXPECT_EQ(code_of([&] { look_up(table, key_field, u"12"_s, {field}); }), Code::Misuse);
}

} // namespace
