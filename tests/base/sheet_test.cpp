#include "base/literals.h"
#include "base/sheet.h"

#include <gtest/gtest.h>

using namespace base;

TEST(Sheet, AResizeKeepsTheCellsThatRemain) {
    Sheet s(3, 2);
    s(2, 1) = u"x"_s;
    s.SetCellBack(2, 1, {1, 2, 3});
    s.SetCols(5);
    s.SetRows(6);
    EXPECT_EQ(s(2, 1) + s(5, 4), u"x"_s);
    s.SetCols(2);
    s.SetRows(3);
    EXPECT_EQ(s(2, 1), u"x"_s);
    EXPECT_EQ(s.Look(2, 1).back, (Rgb{1, 2, 3}));
    s.SetRows(2);
    s.SetRows(3);
    EXPECT_EQ(s(2, 1), u""_s);
    EXPECT_FALSE(s.Look(2, 1).back);
}

TEST(Sheet, SortingLeavesTheHeadingAndKeepsEqualRowsInOrder) {
    Sheet s(5, 2);
    s.SetFixed(1, 0);
    const QString rows[][2] = {
        {u"番号"_s, u""_s}, {u"10"_s, u"a"_s}, {u"9"_s, u"b"_s}, {u"x"_s, u"c"_s}, {u"9"_s, u"d"_s}};
    for (int r = 0; r < 5; ++r)
        for (int c = 0; c < 2; ++c)
            s(r, c) = rows[r][c];
    // As text 10 comes before 9; as a number text counts as 0.
    for (const auto& [order, sorted] : {std::pair(SortOrder::GenericAscending, u"bdac"_s),
             {SortOrder::TextAscending, u"abdc"_s}, {SortOrder::NumericAscending, u"cbda"_s}}) {
        s.Sort(0, order);
        EXPECT_EQ(s(0, 1) + s(1, 1) + s(2, 1) + s(3, 1) + s(4, 1), sorted);
    }
}

TEST(Sheet, HiddenRowsAreNotTheLastAndTheViewCutsAtItsSize) {
    Sheet s(5, 4);
    s.SetFixed(1, 1);
    s.SetRowHeight(4, 0);
    s.SetColWidth(3, 0);
    EXPECT_EQ(s.LastRow(), 3);
    EXPECT_EQ(s.LastCol(), 2);
    EXPECT_EQ(s.VisibleRows(Sheet::default_row_height * 3), 2) << "rows 0 to 2 fit; less the fixed one";
    EXPECT_EQ(s.VisibleRows(100000), 5);
    s.SetTopLeft(1, 2);
    EXPECT_EQ(s.VisibleCols(Sheet::default_col_width * 2), 4) << "the fixed column and column 2; column 3 has no width";
    EXPECT_EQ(s.VisibleCols(Sheet::default_col_width), 1);
}
