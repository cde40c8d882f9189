#include "common/ken_mst.h"

#include "base/keys.h"
#include "store/test_tree.h"

#include <gtest/gtest.h>

using namespace base;
using common::ken_mst;
using SearchControl = ken_mst::SearchControl;

class KenMst : public ::testing::Test {
protected:
    KenMst() {
        store::Database::open(store::comsys_path(tree.settings), store::Kind::Comsys)
            .exec("insert into syain (システム番号, 社員番号, 社員名, フリガナ) values"
                  " (1, 30, '山田 太郎', 'ﾔﾏﾀﾞ ﾀﾛｳ'), (2, 4, '佐藤 花子', 'サトウ ハナコ'),"
                  " (3, 120, 'O''Brien', 'オブライエン'), (4, 5, 'Abe 100%', 'アベ')");
        search.Form_Activate();
    }
    /// The numbers that were found.
    QString found() const {
        QStringList numbers;
        for (int row = 1; row < search.hyou.Rows(); ++row)
            numbers << search.hyou(row, ken_mst::number_col);
        return numbers.join(u' ');
    }
    QString found_by(int box, const QString& text) {
        search.kenatai_Change(box, text);
        search.抽出処理();
        return found();
    }
    QString row_of_kana(int row) const {
        QString kana;
        for (int col = 0; col < search.hyou_go.Cols(); ++col)
            kana += search.hyou_go(row, col);
        return kana;
    }

    TestTree tree;
    QString mstkenflg;
    ken_mst search{tree.settings, mstkenflg, common::search_employees};
};

TEST_F(KenMst, WithoutConditionsEveryRowComesByNumber) {
    search.botan_Click(1);
    EXPECT_EQ(found(), u"4 5 30 120"_s);
    EXPECT_EQ(search.hyou(3, ken_mst::row_col) + search.hyou(3, ken_mst::name_col) + search.hyou(3, ken_mst::key_col),
        u"3山田 太郎1"_s);
    EXPECT_EQ(search.hyou.Row(), 1);
    EXPECT_EQ(search.focus, (ken_mst::Wish{SearchControl::Hyou}));
}

TEST_F(KenMst, TextMatchesWhateverItsCaseWidthAndKanaAndANumberOnlyARowThatHasOne) {
    constexpr int reading = ken_mst::reading_box, name = ken_mst::name_box, number = ken_mst::number_box;
    const std::tuple<int, QString, QString> cases[] = {{reading, u"やまだ"_s, u"30"_s}, {reading, u"ヤマダ"_s, u"30"_s},
        {reading, u"ｻﾄｳ"_s, u"4"_s}, {reading, u"あ"_s, u"5"_s}, {name, u"ａｂｅ"_s, u"5"_s},
        {name, u"o'b"_s, u"120"_s}, {name, u"%"_s, u"5"_s}, {name, u"' or 1=1 --"_s, u""_s}, {number, u"30"_s, u"30"_s},
        {number, u"３０"_s, u"30"_s}, {number, u"3"_s, u""_s}, {number, u"3x"_s, u""_s}, {number, u"0"_s, u"0"_s}};
    store::Database::open(store::comsys_path(tree.settings), store::Kind::Comsys)
        .exec("insert into syain (システム番号, 社員番号, 社員名) values (0, null, '全体'), (9, 0, '0')");
    for (const auto& [box, text, numbers] : cases) {
        search.kenatai = {};
        EXPECT_EQ(found_by(box, text), numbers) << text.toStdString();
    }
}

TEST_F(KenMst, ConditionsHoldTogether) {
    EXPECT_EQ(common::search_mode(common::search_employees)->table, u"syain"_s);
    EXPECT_EQ(common::search_mode(99), nullptr);
    EXPECT_EQ(found_by(ken_mst::name_box, u"郎"_s), u"30"_s);
    EXPECT_EQ(found_by(ken_mst::number_box, u"4"_s), u""_s);
    EXPECT_EQ(search.hyou.Row(), 0) << "the heading is all there is";
}

TEST_F(KenMst, EnterGoesThroughTheBoxesAndSearchesInTheLast) {
    for (const int next : {ken_mst::reading_box, ken_mst::number_box}) {
        EXPECT_TRUE(search.kenatai_KeyDown(search.focus->element, key::enter));
        EXPECT_EQ(search.focus, (ken_mst::Wish{SearchControl::Kenatai, next})) << "the spare box is out of sight";
    }
    search.focus.reset();
    EXPECT_TRUE(search.kenatai_KeyDown(ken_mst::number_box, key::enter));
    EXPECT_EQ(search.focus, (ken_mst::Wish{SearchControl::Hyou}));
    EXPECT_FALSE(search.kenatai_KeyDown(ken_mst::name_box, key::right));
    EXPECT_TRUE(search.kenatai_KeyDown(ken_mst::name_box, key::down)) << "to the rows that were found";
    search.hyou.SetRow(2);
    EXPECT_FALSE(search.hyou_KeyDown(key::up) || search.hyou_KeyDown(key::enter));
    search.hyou.SetRow(1);
    EXPECT_TRUE(search.hyou_KeyDown(key::up));
    EXPECT_EQ(search.focus, (ken_mst::Wish{SearchControl::Kenatai, ken_mst::name_box}));
}

TEST_F(KenMst, TheFlagStandsWhileTheSearchIsOpen) {
    EXPECT_EQ(mstkenflg, u"3"_s);
    search.botan_Click(1);
    for (const int no_row : {0, -1, search.hyou.Rows()})
        search.hyou_Click(no_row);
    EXPECT_FALSE(search.ended) << "the heading is no row";
    search.hyou_Click(3);
    EXPECT_EQ(search.search_result, u"30"_s);
    EXPECT_TRUE(search.ended);
    EXPECT_EQ(mstkenflg, QString());
    {
        ken_mst other(tree.settings, mstkenflg, common::search_employees);
        EXPECT_EQ(mstkenflg, u"3"_s);
    }
    EXPECT_EQ(mstkenflg, QString()) << "unloaded by other means";
    search.botan_Click(0);
    EXPECT_EQ(search.search_result, QString()) << "left without a choice";
}

TEST_F(KenMst, AKanaIsAddedToTheReadingAndSearches) {
    EXPECT_EQ(row_of_kana(0) + row_of_kana(1) + row_of_kana(2), u"あいうえおあかさたなはまやらわ"_s);
    search.hyou_go_Click({2, 2});
    EXPECT_EQ(row_of_kana(0), u"やゆよ"_s);
    EXPECT_EQ(found(), u""_s) << "nothing is searched yet";
    // No kana stands in the first two places.
    for (const base::Cell cell : {base::Cell{0, 4}, {2, 5}, {0, 0}, {2, 1}, {0, 0}})
        search.hyou_go_Click(cell);
    EXPECT_EQ(search.kenatai[ken_mst::reading_box], u"やま"_s);
    EXPECT_EQ(found(), u"30"_s);
    for (const auto& [heads, page] : {std::pair(u"がざだば"_s, u"濁音"_s), {u"ぱ"_s, u"半濁音"_s},
             {u"ぁヵっゃゎ"_s, u"小文字"_s}, {u"あかさたな"_s, u"通常"_s}}) {
        search.mojikirikae_Click();
        EXPECT_EQ(row_of_kana(1), heads);
        EXPECT_EQ(search.page_name(), page);
    }
}
