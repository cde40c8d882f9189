#include "ui/grid_view.h"

#include "ui/grid_painter.h"

#include "base/literals.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
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
    void click(int row, int col) {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.cell_rect({row, col}).center());
    }
};

TEST_F(Grid, AClickPutsTheCursorOnACellButNotOnAHeading) {
    QSignalSpy chosen(&view, &ui::GridView::cell_clicked), edge(&view, &ui::GridView::edge_clicked);
    click(4, 3);
    click(0, 3);
    click(3, 1);
    EXPECT_EQ(chosen.count(), 1);
    EXPECT_EQ(edge.count(), 2);
    EXPECT_EQ(sheet.Row(), 4);
    EXPECT_EQ(sheet.Col(), 3);
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

TEST_F(Grid, TheScrollBarsKeepTopRowAndLeftColInTheSheet) {
    QSignalSpy scrolled(&view, &ui::GridView::scrolled);
    view.verticalScrollBar()->setValue(20);
    EXPECT_EQ(sheet.TopRow(), 20);
    EXPECT_EQ(scrolled.count(), 1);
    EXPECT_EQ(view.cell_rect({20, 2}).top(), view.cell_rect({0, 2}).bottom() + 1);
}

TEST_F(Grid, AListTintsTheWholeRowInHandAndShowsTheColoursOfTheForm) {
    sheet.setBack(4, 3, {255, 200, 200});
    ui::GridView list(sheet, ui::CursorStyle::Row);
    list.resize(400, 200);
    list.show();
    click(3, 3);
    const QImage image = list.viewport()->grab().toImage();
    const auto colour = [&](int row, int col) {
        return image.pixelColor(list.cell_rect({row, col}).topLeft() + QPoint(2, 2));
    };
    EXPECT_NE(colour(3, 2), QColor(Qt::white));
    EXPECT_EQ(colour(4, 2), QColor(Qt::white));
    EXPECT_EQ(colour(4, 3), QColor(255, 200, 200));
}

TEST_F(Grid, ACursorOnAHiddenRowIsShownOnTheNextRowInSight) {
    sheet.setRowHeight(1, 0);
    EXPECT_EQ(ui::shown_cursor(sheet), (base::Cell{2, 2})) << "the count strip keeps its cursor on the hidden tag row";
    sheet.setCursor({0, 2});
    EXPECT_FALSE(ui::shown_cursor(sheet));
}

} // namespace
