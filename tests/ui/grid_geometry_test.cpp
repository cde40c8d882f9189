#include "ui/grid/grid_geometry.h"

#include <gtest/gtest.h>

namespace {

constexpr double at_96_dpi = 96.0 / 1440;

/// A month sheet's shape: rows of 18 pixels, two fixed columns, seven rows at the end out of sight.
base::Sheet month_shape() {
    base::Sheet sheet(41, 8);
    sheet.SetFixed(1, 2);
    for (int row = 33; row < 41; ++row)
        sheet.SetRowHeight(row, 0);
    for (int col = 0; col < 8; ++col)
        sheet.SetColWidth(col, col < 2 ? 500 : 900);
    return sheet;
}

QList<int> indexes(const QList<ui::Span>& spans) {
    QList<int> found;
    for (const ui::Span& span : spans)
        found << span.index;
    return found;
}

TEST(GridGeometry, TwipsBecomePixelsAtTheResolutionOfTheScreen) {
    const base::Sheet sheet = month_shape();
    EXPECT_EQ(ui::GridGeometry(sheet, at_96_dpi, {800, 800}).rect({2, 3}), QRect(33 + 33 + 60, 36, 60, 18));
    EXPECT_EQ(ui::GridGeometry(sheet, 2 * at_96_dpi, {800, 800}).rect({2, 3}), QRect(67 + 67 + 120, 72, 120, 36));
}

TEST(GridGeometry, FixedRowsAndColumnsStayWhileTheRestScrolls) {
    base::Sheet sheet = month_shape();
    sheet.SetTopLeft(10, 4);
    const ui::GridGeometry geometry(sheet, at_96_dpi, {66 + 2 * 60, 4 * 18});
    EXPECT_EQ(indexes(geometry.rows()), (QList{0, 10, 11, 12}));
    EXPECT_EQ(indexes(geometry.cols()), (QList{0, 1, 4, 5}));
    EXPECT_EQ(geometry.rect({0, 4}), QRect(66, 0, 60, 18));
    EXPECT_TRUE(geometry.rect({9, 4}).isEmpty());
    EXPECT_TRUE(geometry.rect({10, 3}).isEmpty());
}

TEST(GridGeometry, ARowOfHeightZeroTakesNoRoomAndNoClick) {
    base::Sheet sheet = month_shape();
    sheet.SetRowHeight(2, 0);
    const ui::GridGeometry geometry(sheet, at_96_dpi, {400, 800});
    EXPECT_TRUE(geometry.rect({2, 2}).isEmpty());
    EXPECT_EQ(geometry.rect({3, 2}).top(), 36);
    EXPECT_EQ(geometry.cell_at({70, 36}), (base::Cell{3, 2}));
    EXPECT_FALSE(geometry.cell_at({70, 790}));
}

TEST(GridGeometry, ScrollingEndsWhereTheLastRowWithAHeightIsInView) {
    const base::Sheet sheet = month_shape();
    EXPECT_EQ(ui::GridGeometry(sheet, at_96_dpi, {430, 33 * 18}).last_top(), 1) << "everything fits";
    EXPECT_EQ(ui::GridGeometry(sheet, at_96_dpi, {430, 33 * 18 - 1}).last_top(), 2);
    EXPECT_EQ(ui::GridGeometry(sheet, at_96_dpi, {430, 18 + 5 * 18}).last_top(), 28);
    EXPECT_EQ(ui::GridGeometry(sheet, at_96_dpi, {66 + 60, 800}).last_left(), 7);
    EXPECT_EQ(ui::GridGeometry(sheet, at_96_dpi, {5, 5}).last_top(), 32) << "a view too small shows at least the last";
}

TEST(GridGeometry, ShowingACellScrollsAsLittleAsPossible) {
    base::Sheet sheet = month_shape();
    sheet.SetTopLeft(10, 2);
    const ui::GridGeometry geometry(sheet, at_96_dpi, {430, 18 + 5 * 18});
    EXPECT_EQ(geometry.top_for(12), 10) << "in view already";
    EXPECT_EQ(geometry.top_for(4), 4);
    EXPECT_EQ(geometry.top_for(15), 11);
    EXPECT_EQ(geometry.top_for(0), 10) << "the heading is always in view";
}

} // namespace
