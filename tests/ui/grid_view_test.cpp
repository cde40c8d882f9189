#include "ui/grid/grid_view.h"

#include "base/literals.h"
#include "support/person.h"
#include "ui/grid/grid_painter.h"

#include <QAccessible>
#include <QScrollBar>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

struct Grid : testing::Test {
    base::Sheet sheet{50, 6};
    ui::GridView view{sheet, ui::CursorStyle::Cell};

    Grid() {
        sheet.SetFixed(1, 2);
        for (int col = 0; col < 6; ++col)
            sheet.SetColWidth(col, 900);
        sheet.SetCursor({1, 2});
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
    sheet.SetColWidth(2, 0);
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
    sheet.SetRowHeight(2, 0);
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
    sheet.SetTopLeft(49, 2);
    view.refresh();
    EXPECT_LT(sheet.TopRow(), 49) << "no room is left behind the last row";
    EXPECT_FALSE(view.cell_rect({49, 2}).isEmpty());
    EXPECT_EQ(scrolled.count(), 1);
}

TEST_F(Grid, NoScrollBarStandsWhereEverythingFits) {
    sheet.SetRows(5);
    view.resize(view.full_width(false), view.full_height(false));
    view.refresh();
    QCoreApplication::processEvents();
    EXPECT_FALSE(view.verticalScrollBar()->isVisible());
    EXPECT_FALSE(view.horizontalScrollBar()->isVisible());
}

TEST_F(Grid, ColoursOfTheFormAreShownAndAListTintsTheWholeRowInHand) {
    sheet.SetCellBack(2, 3, {255, 200, 200});
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

TEST_F(Grid, TheKeyboardIsSeenOnAListWithoutARowInHand) {
    ui::GridView list(sheet, ui::CursorStyle::Row);
    sheet.SetCursor({0, 2});
    list.show();
    const QImage idle = list.grab().toImage();
    support::bring_up(list, list.size());
    list.setFocus();
    EXPECT_NE(list.grab().toImage(), idle);
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
    sheet.SetCellAlignment(6, 4, base::Alignment::Right);
    view.refresh();
    EXPECT_TRUE(ink_in_left_half(5));
    EXPECT_FALSE(ink_in_left_half(6));
}

TEST_F(Grid, ACursorOnAHiddenRowIsShownOnTheNextRowInSight) {
    sheet.SetRowHeight(1, 0);
    EXPECT_EQ(ui::shown_cursor(sheet), (base::Cell{2, 2})) << "the count strip keeps its cursor on the hidden tag row";
    sheet.SetCursor({0, 2});
    EXPECT_FALSE(ui::shown_cursor(sheet));
}

/// What a screen reader can ask, and what it is told.
struct ReadGrid : Grid {
    ui::GridView list{sheet, ui::CursorStyle::Row};
    ui::GridTeller teller;

    ReadGrid() {
        sheet.SetRowHeight(2, 0);
        sheet.SetColWidth(3, 0);
        sheet(0, 4) = u"出社"_s;
        sheet(3, 0) = u"1"_s;
        sheet(3, 1) = u"月"_s;
        sheet(3, 4) = u"830"_s;
        view.refresh();
    }
    static QString words(const QAccessibleEvent& event) {
        if (event.type() == QAccessible::TableModelChanged) {
            const auto& change = static_cast<const QAccessibleTableModelChangeEvent&>(event);
            return u"change %1: %2,%3-%4,%5"_s.arg(change.modelChangeType())
                .arg(change.firstRow())
                .arg(change.firstColumn())
                .arg(change.lastRow())
                .arg(change.lastColumn());
        }
        auto* cell = event.accessibleInterface()->tableCellInterface();
        return u"%1: %2,%3"_s.arg(event.type() == QAccessible::Focus ? u"focus"_s : u"selection"_s)
            .arg(cell->rowIndex())
            .arg(cell->columnIndex());
    }
    QStringList news() {
        QStringList told;
        for (const auto& event : teller.news(view))
            told << words(*event);
        return told;
    }
    static QAccessibleTableInterface& table(ui::GridView& of) {
        return *QAccessible::queryAccessibleInterface(&of)->tableInterface();
    }
    static QStringList texts(const QList<QAccessibleInterface*>& cells) {
        QStringList all;
        for (const auto* cell : cells)
            all << cell->text(QAccessible::Name);
        return all;
    }
};

TEST_F(ReadGrid, AScreenReaderReadsCellsHeadingsAndWhatIsInHand) {
    auto& month = table(view);
    EXPECT_EQ(std::pair(month.rowCount(), month.columnCount()), std::pair(49, 5)) << "what has no size isn't read";
    auto* cell = month.cellAt(2, 3);
    EXPECT_EQ(cell->text(QAccessible::Name), u"830"_s);
    EXPECT_EQ(cell, month.cellAt(2, 3));
    EXPECT_EQ(texts(cell->tableCellInterface()->columnHeaderCells()), QStringList{u"出社"_s});
    EXPECT_EQ(texts(cell->tableCellInterface()->rowHeaderCells()), (QStringList{u"1"_s, u"月"_s}));
    EXPECT_EQ(month.columnDescription(3) + month.rowDescription(2), u"出社1 月"_s);
    EXPECT_EQ(month.cellAt(0, 3)->role(), QAccessible::ColumnHeader);
    EXPECT_EQ(month.cellAt(2, 1)->role(), QAccessible::RowHeader);
    for (const auto& [row, col] : {std::pair(-1, 0), {49, 0}, {0, 5}})
        EXPECT_EQ(month.cellAt(row, col), nullptr);
    auto* grid = QAccessible::queryAccessibleInterface(&view);
    EXPECT_EQ(grid->child(grid->indexOfChild(cell)), cell);
    EXPECT_EQ(grid->childAt(cell->rect().center().x(), cell->rect().center().y()), cell);

    sheet.SetCursor({3, 4});
    EXPECT_TRUE(cell->state().selected && cell->state().focusable);
    EXPECT_EQ(texts(month.selectedCells()), QStringList{u"830"_s});
    EXPECT_EQ(texts(table(list).selectedCells()), (QStringList{u"1"_s, u"月"_s, u""_s, u"830"_s, u""_s})) << "a row";
    EXPECT_EQ(table(list).selectedRows(), QList{2});
    sheet.SetRows(3);
    EXPECT_FALSE(cell->isValid());
}

TEST_F(ReadGrid, AScreenReaderIsToldOfEachChange) {
    EXPECT_EQ(news(), QStringList()) << "as it was found";
    support::click_cell(view, 3, 4);
    view.clearFocus();
    EXPECT_EQ(news(), QStringList{u"selection: 2,3"_s});
    sheet(5, 4) = u"900"_s;
    sheet(4, 5) = u"1700"_s;
    sheet(4, 3) = u"out of sight"_s;
    support::bring_up(view, view.size());
    view.setFocus();
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_EQ(news(), (QStringList{u"change 1: 3,3-4,4"_s, u"selection: 3,3"_s, u"focus: 3,3"_s}));
    EXPECT_EQ(news(), QStringList()) << "nothing new";
    sheet.SetRowHeight(2, 270);
    EXPECT_EQ(news(), QStringList{u"change 0: -1,-1--1,-1"_s}) << "all is to be read anew";
}

} // namespace
