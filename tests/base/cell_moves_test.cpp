#include "base/cell_moves.h"
#include "base/keys.h"

#include <gtest/gtest.h>

using namespace base;

namespace {

constexpr int arrows[] = {1, 2, 7, 8};
constexpr int enter[] = {1, 2};
constexpr CellRoutes routes{arrows, enter};

} // namespace

TEST(CellMoves, KeysLeadToTheNextCellThatTakesTheEditor) {
    Sheet sheet(4, 9);
    sheet.SetFixed(1, 1);
    const std::tuple<int, Cell, std::optional<Cell>> cases[] = {{key::enter, {1, 1}, Cell{1, 2}},
        {key::enter, {1, 2}, Cell{2, 1}}, {key::enter, {1, 8}, Cell{2, 1}}, {key::enter, {3, 2}, std::nullopt},
        {key::right, {1, 2}, Cell{1, 7}}, {key::right, {1, 8}, std::nullopt}, {key::left, {1, 7}, Cell{1, 2}},
        {key::left, {1, 1}, std::nullopt}, {key::down, {2, 7}, Cell{3, 7}}, {key::down, {3, 7}, std::nullopt},
        {key::up, {2, 7}, Cell{1, 7}}, {key::up, {1, 7}, std::nullopt}, {key::del, {2, 7}, std::nullopt}};
    for (const auto& [code, from, to] : cases)
        EXPECT_EQ(next_cell(sheet, routes, from, code), to) << code << " from " << from.row << "," << from.col;
}

TEST(CellMoves, TheBoxFollowsItsCellWhileTheCellIsInView) {
    Sheet sheet(50, 3);
    sheet.SetFixed(1, 0);
    sheet.SetColWidth(2, 0);
    const int height = 4 * Sheet::default_row_height;
    const int width = 2 * Sheet::default_col_width;
    CellEditor box;
    follow_scroll(sheet, box, width, height);
    EXPECT_FALSE(box.visible) << "no cell in hand";
    box.place({20, 1}, {}, InputMethod::Off);
    const std::pair<int, bool> tops[] = {{1, false}, {17, false}, {18, true}, {20, true}, {21, false}};
    for (const auto& [top, visible] : tops) {
        sheet.SetTopLeft(top, 0);
        follow_scroll(sheet, box, width, height);
        EXPECT_EQ(box.visible, visible) << top;
        EXPECT_TRUE(box.active);
    }
    sheet.SetTopLeft(18, 0);
    EXPECT_FALSE(in_view(sheet, {20, 1}, width - 1, height));
    EXPECT_FALSE(in_view(sheet, {20, 2}, 10 * width, height)) << "hidden";
}
