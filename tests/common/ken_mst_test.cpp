#include "common/ken_mst.h"

#include "base/keys.h"
#include "store/test_tree.h"

#include <gtest/gtest.h>

using namespace base;
using common::ken_mst;
using Focus = ken_mst::Focus;

namespace {

class KenMst : public ::testing::Test {
protected:
    KenMst() {
        store::Database::open(store::comsys_path(tree.settings), store::Kind::Comsys)
            .exec("insert into syain (システム番号, 社員番号, 社員名, フリガナ) values"
                  " (1, 30, '山田 太郎', 'ﾔﾏﾀﾞ ﾀﾛｳ'), (2, 4, '佐藤 花子', 'サトウ ハナコ'),"
                  " (3, 120, 'O''Brien', 'オブライエン'), (4, 5, 'Abe 100%', 'アベ')");
        search.Form_Activate();
    }
    QStringList numbers() const {
        QStringList found;
        for (int row = 1; row < search.hyou.Rows(); ++row)
            found << search.hyou(row, ken_mst::number_col);
        return found;
    }
    QStringList numbers_for(int box, const QString& text) {
        search.kenatai = {};
        search.kenatai_Change(box, text);
        search.抽出処理();
        return numbers();
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

} // namespace

TEST_F(KenMst, WithoutConditionsEveryRowComesByNumber) {
    search.botan_Click(1);
    EXPECT_EQ(numbers(), (QStringList{u"4"_s, u"5"_s, u"30"_s, u"120"_s}));
    EXPECT_EQ(search.hyou(3, ken_mst::row_col), u"3"_s);
    EXPECT_EQ(search.hyou(3, ken_mst::name_col), u"山田 太郎"_s);
    EXPECT_EQ(search.hyou(3, ken_mst::key_col), u"1"_s);
    EXPECT_EQ(search.hyou.Row(), 1);
    EXPECT_EQ(search.focus, (ken_mst::Wish{Focus::Hyou}));
}

TEST_F(KenMst, TextMatchesWhateverItsCaseWidthAndKana) {
    const struct {
        int box;
        QString text;
        QStringList found;
    } cases[] = {
        {ken_mst::reading_box, u"やまだ"_s, {u"30"_s}},
        {ken_mst::reading_box, u"ヤマダ"_s, {u"30"_s}},
        {ken_mst::reading_box, u"ｻﾄｳ"_s, {u"4"_s}},
        {ken_mst::reading_box, u"あ"_s, {u"5"_s}},
        {ken_mst::name_box, u"ａｂｅ"_s, {u"5"_s}},
        {ken_mst::name_box, u"o'b"_s, {u"120"_s}},
        {ken_mst::name_box, u"%"_s, {u"5"_s}},
        {ken_mst::name_box, u"' or 1=1 --"_s, {}},
        {ken_mst::number_box, u"30"_s, {u"30"_s}},
        {ken_mst::number_box, u"３０"_s, {u"30"_s}},
        {ken_mst::number_box, u"3"_s, {}},
        {ken_mst::number_box, u"3x"_s, {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(numbers_for(c.box, c.text), c.found) << c.text.toStdString();
}

TEST_F(KenMst, ConditionsHoldTogether) {
    search.kenatai_Change(ken_mst::name_box, u"郎"_s);
    EXPECT_EQ(numbers_for(ken_mst::name_box, u"郎"_s), QStringList{u"30"_s});
    search.kenatai_Change(ken_mst::number_box, u"4"_s);
    search.抽出処理();
    EXPECT_EQ(numbers(), QStringList());
    EXPECT_EQ(search.hyou.Row(), 0) << "the heading is all there is";
}

TEST_F(KenMst, EnterGoesThroughTheBoxesAndSearchesInTheLast) {
    for (const int next : {ken_mst::reading_box, ken_mst::number_box}) {
        EXPECT_TRUE(search.kenatai_KeyDown(search.focus->element, key::enter));
        EXPECT_EQ(search.focus, (ken_mst::Wish{Focus::Kenatai, next})) << "the spare box is out of sight";
    }
    search.focus.reset();
    EXPECT_TRUE(search.kenatai_KeyDown(ken_mst::number_box, key::enter));
    EXPECT_EQ(search.focus, (ken_mst::Wish{Focus::Hyou}));
    search.hyou.setRow(2);
    EXPECT_FALSE(search.hyou_KeyDown(key::up));
    search.hyou.setRow(1);
    EXPECT_TRUE(search.hyou_KeyDown(key::up));
    EXPECT_EQ(search.focus, (ken_mst::Wish{Focus::Kenatai, ken_mst::name_box}));
}

TEST_F(KenMst, TheFlagStandsWhileTheSearchIsOpen) {
    EXPECT_EQ(mstkenflg, u"3"_s);
    search.botan_Click(1);
    search.hyou_Click(0);
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
}

TEST_F(KenMst, AKanaIsAddedToTheReadingAndSearches) {
    EXPECT_EQ(row_of_kana(0), u"あいうえお"_s);
    EXPECT_EQ(row_of_kana(1), u"あかさたな"_s);
    EXPECT_EQ(row_of_kana(2), u"はまやらわ"_s);
    EXPECT_EQ(search.hyou_go.look(2, 0).back, (Rgb{235, 235, 255}));
    search.hyou_go_Click({2, 2});
    EXPECT_EQ(row_of_kana(0), u"やゆよ"_s);
    EXPECT_TRUE(numbers().isEmpty()) << "nothing is searched yet";
    search.hyou_go_Click({0, 4});
    search.hyou_go_Click({2, 5});
    EXPECT_EQ(search.kenatai[ken_mst::reading_box], QString()) << "no kana there";
    search.hyou_go_Click({0, 0});
    search.hyou_go_Click({2, 1});
    search.hyou_go_Click({0, 0});
    EXPECT_EQ(search.kenatai[ken_mst::reading_box], u"やま"_s);
    EXPECT_EQ(numbers(), QStringList{u"30"_s});
}

TEST_F(KenMst, ThePagesOfKanaFollowEachOther) {
    const QStringList heads[] = {{u"がざだば"_s, u"濁音"_s}, {u"ぱ"_s, u"半濁音"_s}, {u"ぁヵっゃゎ"_s, u"小文字"_s},
        {u"あかさたな"_s, u"通常"_s}};
    for (const QStringList& page : heads) {
        search.mojikirikae_Click();
        EXPECT_EQ(row_of_kana(1), page[0]);
        EXPECT_EQ(search.page_name(), page[1]);
    }
}
