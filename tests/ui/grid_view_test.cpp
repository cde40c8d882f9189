#include "ui/grid/grid_view.h"

#include "base/literals.h"
#include "support/person.h"
#include "ui/grid/grid_painter.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

struct Grid : testing::Test {
    base::Sheet sheet{50, 6};
    ui::GridView view{sheet, ui::CursorStyle::Cell};

    Grid() {
        sheet.setFixed(1, 2);
        for (int col = 0; col < 6; ++col)
            sheet.setColWidth(col, 900);
        sheet.setCursor({1, 2});
        view.setFrameShape(QFrame::NoFrame);
        view.resize(400, 200);
        view.show();
        view.refresh();
    }
    static QColor pixel(ui::GridView& of, int row, int col) {
        const QPixmap picture = of.viewport()->grab();
        const QPoint at = of.cell_rect({row, col}).topLeft() + QPoint(2, 2);
        return picture.toImage().pixelColor(at * picture.devicePixelRatio());
    }
};

TEST_F(Grid, AClickPutsTheCursorOnTheCellOneOnARowsHeadingOnItsFirstAndOneOnAColumnsLeavesIt) {
    QSignalSpy chosen(&view, &ui::GridView::cell_clicked), edge(&view, &ui::GridView::edge_clicked);
    sheet.setColWidth(2, 0);
    support::click_cell(view, 3, 1);
    EXPECT_EQ(sheet.Row(), 3);
    EXPECT_EQ(sheet.Col(), 3) << "the first that can be seen";
    support::click_cell(view, 4, 4);
    support::click_cell(view, 0, 3);
    support::click_cell(view, 0, 0);
    EXPECT_EQ(chosen.count(), 2);
    EXPECT_EQ(edge.count(), 2);
    EXPECT_EQ(sheet.Row(), 4);
    EXPECT_EQ(sheet.Col(), 4);
}

TEST_F(Grid, ArrowsStepOverHiddenRowsAndStopAtTheEdges) {
    sheet.setRowHeight(2, 0);
    view.refresh();
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_EQ(sheet.Row(), 3);
    QTest::keyClick(&view, Qt::Key_Up);
    QTest::keyClick(&view, Qt::Key_Up);
    EXPECT_EQ(sheet.Row(), 1) << "the heading takes no cursor";
    QTest::keyClick(&view, Qt::Key_Left);
    EXPECT_EQ(sheet.Col(), 2);
    for (int i = 0; i < 30; ++i)
        QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_EQ(sheet.Row(), 32);
    EXPECT_FALSE(view.cell_rect({32, 2}).isEmpty()) << "the cursor stays in view";
}

TEST_F(Grid, KeysThatMoveNothingGoToTheForm) {
    QSignalSpy keys(&view, &ui::GridView::key_pressed);
    QTest::keyClick(&view, Qt::Key_7);
    QTest::keyClick(&view, Qt::Key_Delete);
    QTest::keyClick(&view, Qt::Key_Down);
    ASSERT_EQ(keys.count(), 2);
    EXPECT_EQ(keys[0][1].toString(), u"7"_s);
    EXPECT_EQ(keys[1][0].toInt(), int(Qt::Key_Delete));
}

TEST_F(Grid, AScrollOfThePersonIsToldAndOneOfTheFormIsNot) {
    QSignalSpy scrolled(&view, &ui::GridView::scrolled);
    view.verticalScrollBar()->setValue(20);
    EXPECT_EQ(sheet.TopRow(), 20);
    EXPECT_EQ(scrolled.count(), 1);
    EXPECT_EQ(view.cell_rect({20, 2}).top(), view.cell_rect({0, 2}).bottom() + 1);
    sheet.setTopLeft(49, 2);
    view.refresh();
    EXPECT_LT(sheet.TopRow(), 49) << "no room is left behind the last row";
    EXPECT_FALSE(view.cell_rect({49, 2}).isEmpty());
    EXPECT_EQ(scrolled.count(), 1);
}

TEST_F(Grid, NoScrollBarStandsWhereEverythingFits) {
    sheet.setRows(5);
    view.resize(view.full_width(false), view.full_height(false));
    view.refresh();
    QCoreApplication::processEvents();
    EXPECT_FALSE(view.verticalScrollBar()->isVisible());
    EXPECT_FALSE(view.horizontalScrollBar()->isVisible());
}

TEST_F(Grid, ColoursOfTheFormAreShownAndAListTintsTheWholeRowInHand) {
    sheet.setBack(2, 3, {255, 200, 200});
    view.refresh();
    EXPECT_EQ(pixel(view, 2, 3), QColor(255, 200, 200));
    EXPECT_EQ(pixel(view, 3, 2), QColor(Qt::white));
    EXPECT_NE(pixel(view, 0, 3), QColor(Qt::white)) << "the heading stands out";

    ui::GridView list(sheet, ui::CursorStyle::Row);
    list.resize(400, 200);
    list.show();
    support::click_cell(list, 3, 3);
    EXPECT_NE(pixel(list, 3, 2), QColor(Qt::white));
    EXPECT_EQ(pixel(list, 4, 2), QColor(Qt::white));
}

TEST_F(Grid, AlignmentPutsTheTextWhereTheFormSays) {
    const auto ink_in_left_half = [this](int row) {
        const QRect cell = view.cell_rect({row, 4});
        const QImage image = view.viewport()->grab(cell.adjusted(1, 2, -cell.width() / 2, -2)).toImage();
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y).lightness() < 128)
                    return true;
        return false;
    };
    sheet(5, 4) = sheet(6, 4) = u"11"_s;
    sheet.setAlignment(6, 4, base::Alignment::Right);
    view.refresh();
    EXPECT_TRUE(ink_in_left_half(5));
    EXPECT_FALSE(ink_in_left_half(6));
}

TEST_F(Grid, ACursorOnAHiddenRowIsShownOnTheNextRowInSight) {
    sheet.setRowHeight(1, 0);
    EXPECT_EQ(ui::shown_cursor(sheet), (base::Cell{2, 2})) << "the count strip keeps its cursor on the hidden tag row";
    sheet.setCursor({0, 2});
    EXPECT_FALSE(ui::shown_cursor(sheet));
}

} // namespace
