#include "base/literals.h"
#include "base/numbers.h"
#include "base/sheet.h"
#include "base/text.h"

#include <gtest/gtest.h>

using namespace base;

TEST(Numbers, TheLeadingNumberCountsAndNothingIsAnError) {
    const std::pair<QString, qint64> cases[] = {{u""_s, 0}, {u"k3"_s, 0}, {u" -5x"_s, -5}, {u"12 3"_s, 12},
        {u"1.9"_s, 1}, {u"８３０"_s, 0}, {u"99999999999999999999"_s, std::numeric_limits<qint64>::max()}};
    for (const auto& [text, number] : cases)
        EXPECT_EQ(Val(text), number) << text.toStdString();
}

TEST(Numbers, ThousandsAreGroupedAndZeroIsBlank) {
    EXPECT_EQ(grouped(0), u""_s);
    EXPECT_EQ(grouped(999), u"999"_s);
    EXPECT_EQ(grouped(1234567), u"1,234,567"_s);
    EXPECT_EQ(grouped(-123456), u"-123,456"_s);
}

TEST(Text, FixedFieldsArePaddedOrCutAndIdeographicSpacesStay) {
    EXPECT_EQ(left_justified(u"公休", 4), u"公休  "_s);
    EXPECT_EQ(right_justified(u"12345", 3), u"123"_s);
    EXPECT_EQ(Trim(u"  \u3000名 "), u"\u3000名"_s);
    EXPECT_EQ(last_four(u"-30"), u"0-30"_s);
}

TEST(Sheet, AResizeKeepsTheCellsThatRemain) {
    Sheet s(3, 2);
    s(2, 1) = u"x"_s;
    s.SetCellBack(2, 1, {1, 2, 3});
    s.SetCols(5);
    s.SetRows(6);
    EXPECT_EQ(s(2, 1), u"x"_s);
    EXPECT_EQ(s(5, 4), u""_s);
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
    s.Sort(0, SortOrder::GenericAscending);
    EXPECT_EQ((s(0, 1) + s(1, 1) + s(2, 1) + s(3, 1) + s(4, 1)), u"bdac"_s);
    s.Sort(0, SortOrder::TextAscending);
    EXPECT_EQ((s(1, 1) + s(2, 1) + s(3, 1) + s(4, 1)), u"abdc"_s) << "10 before 9";
    s.Sort(0, SortOrder::NumericAscending);
    EXPECT_EQ((s(1, 1) + s(2, 1) + s(3, 1) + s(4, 1)), u"cbda"_s) << "text counts as 0";
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
