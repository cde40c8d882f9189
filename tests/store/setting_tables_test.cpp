#include "error_code.h"
#include "store/setting_tables.h"
#include "test_tree.h"

using namespace base;
using namespace store;

namespace {

class Settings : public testing::Test {
protected:
    TestTree tree;
    SettingTables tables{tree.settings};
};

TEST_F(Settings, AKeyThatIsntThereReadsEmptyAndIsAddedByTheFirstWrite) {
    EXPECT_EQ(tables.設定読込(u"losystem"_s, u"使用区分"_s), QString());
    tables.設定書込(u"losystem"_s, u"使用区分"_s, u"2"_s);
    tables.設定書込(u"losystem"_s, u"使用区分"_s, u"1"_s);
    EXPECT_EQ(tables.設定読込(u"losystem"_s, u"使用区分"_s), u"1"_s);
    Database losys = Database::open(losys_path(tree.settings), Kind::Losys);
    EXPECT_EQ(number_from(losys, "select count(*) from losystem"), 1);
}

TEST_F(Settings, EachTableLiesInItsOwnFile) {
    for (const QString& table : {u"losystem"_s, u"rov_kihon"_s, u"kihon"_s})
        tables.設定書込(table, u"a'b\""_s, table);
    for (const QString& table : {u"losystem"_s, u"rov_kihon"_s, u"kihon"_s})
        EXPECT_EQ(tables.設定読込(table, u"a'b\""_s), table) << "a quote in a key is a character";
    Database rovdata = Database::open(rovdata_path(tree.settings), Kind::Rovdata);
    EXPECT_EQ(number_from(rovdata, "select count(*) from rov_kihon where データ='rov_kihon'"), 1);
}

TEST_F(Settings, ARunSharesOneOpeningAndItsWritesStandTogetherAtTheEnd) {
    tables.設定書込(u"kihon"_s, u"和西暦表示"_s, u"1"_s, Run::Begin);
    tables.設定書込(u"kihon"_s, u"月初日付"_s, u"21"_s, Run::Continue);
    SettingTables other(tree.settings);
    EXPECT_EQ(other.設定読込(u"kihon"_s, u"和西暦表示"_s), QString());
    EXPECT_EQ(tables.設定読込(u"kihon"_s, u"月初日付"_s, Run::End), u"21"_s);
    EXPECT_EQ(other.設定読込(u"kihon"_s, u"和西暦表示"_s), u"1"_s);
}

TEST_F(Settings, WorkingOnWhatStandsOpenNeedsSomethingOpenAndRunsCantBeNested) {
    const auto read = [this](store::Run run) { tables.設定読込(u"kihon"_s, u"月初日付"_s, run); };
    EXPECT_EQ(code_of([&] { read(Run::Continue); }), Code::Misuse);
    EXPECT_EQ(code_of([&] { read(Run::End); }), Code::Misuse);
    read(Run::Begin);
    EXPECT_EQ(code_of([&] { read(Run::Begin); }), Code::Misuse);
    EXPECT_NO_THROW(read(Run::Single)) << "an error ends the run";
}

TEST_F(Settings, WithoutATableOrAKeyNothingIsReadOrWrittenAndARunStillEnds) {
    tables.設定書込(QString(), u"鍵"_s, u"1"_s);
    tables.設定書込(u"kihon"_s, QString(), u"1"_s);
    EXPECT_EQ(tables.設定読込(u"kihon"_s, u"鍵"_s, Run::Begin), QString());
    EXPECT_EQ(tables.設定読込(u"kihon"_s, QString(), Run::End), QString());
    EXPECT_EQ(tables.設定読込(u"kihon"_s, u"鍵"_s), QString());
}

} // namespace
