#include "ui/grid/cell_editor.h"

#include "base/literals.h"
#include "support/person.h"

#include <QClipboard>
#include <QPushButton>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace {

using namespace base;
using support::press, support::type;

/// A form that takes digits only, and all characters where the input method is on.
struct Editing : testing::Test {
    QWidget window;
    Sheet sheet{30, 5};
    CellEditor state;
    ui::GridView grid{sheet, ui::CursorStyle::Cell, &window};
    QPushButton other{&window};
    QList<int> moves;
    QList<int> pressed;
    int left = 0;
    ui::CellEditor box{grid, state,
        {
            [this](int code) { return moves << code, code == 13; },
            [this](int character) { return pressed << character, stands(character); },
            [this](QString text) { return text.removeIf([this](QChar c) { return !stands(c.unicode()); }); },
            [this](const QString& text) { state.text = text; },
            [this] { ++left; },
        }};

    Editing() {
        sheet.SetFixed(1, 1);
        auto* column = new QVBoxLayout(&window);
        column->addWidget(&grid);
        column->addWidget(&other);
        support::bring_up(window, {500, 250});
        place({3, 2}, u"830"_s);
    }
    bool stands(int character) const {
        return state.input_method == InputMethod::On || character == 8 || QChar::isDigit(uint(character));
    }
    void place(Cell cell, const QString& text, InputMethod method = InputMethod::Off) {
        state.place(cell, text, method);
        box.refresh();
    }
    bool in_sight() const { return grid.viewport()->rect().intersects(box.geometry()); }
};

TEST_F(Editing, TypingReplacesTheSelectedText) {
    EXPECT_TRUE(box.hasFocus());
    EXPECT_EQ(box.selectedText(), u"830"_s);
    type(u"9a15"_s);
    EXPECT_EQ(state.text, u"915"_s);
    EXPECT_EQ(pressed, (QList<int>{'9', 'a', '1', '5'}));
}

TEST_F(Editing, AKeyThatMovedTheCursorIsNotTheBoxsOwn) {
    QTest::keyClick(&box, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(moves, QList{13});
    QTest::keyClick(&box, Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(moves, QList{13}) << "selecting with Shift stays in the box";
}

TEST_F(Editing, TakingCharactersAwayIsAskedLikeTyping) {
    box.end(false);
    QTest::keyClick(&box, Qt::Key_Backspace);
    EXPECT_EQ(state.text, u"83"_s);
    box.home(false);
    QTest::keyClick(&box, Qt::Key_Delete);
    EXPECT_EQ(state.text, u"3"_s);
    EXPECT_EQ(pressed, (QList<int>{8, 8}));
}

TEST_F(Editing, OnlyWhatTheFormLetsStandIsPastedOrComposed) {
    QApplication::clipboard()->setText(u"17時15分"_s);
    QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(state.text, u"1715"_s);

    place({3, 2}, u""_s);
    EXPECT_FALSE(box.testAttribute(Qt::WA_InputMethodEnabled));
    type(u"８３０時"_s);
    EXPECT_EQ(state.text, u"830"_s) << "full-width digits count as digits";

    place({3, 3}, u""_s, InputMethod::On);
    EXPECT_TRUE(box.testAttribute(Qt::WA_InputMethodEnabled));
    type(u"出張：大阪３日"_s);
    EXPECT_EQ(state.text, u"出張：大阪３日"_s);
}

TEST_F(Editing, GoingToAnotherControlIsToldAndAnotherWindowIsNot) {
    QFocusEvent to_window(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(&box, &to_window);
    EXPECT_EQ(left, 0);
    other.setFocus();
    EXPECT_EQ(left, 1);
}

TEST_F(Editing, OutOfSightTheBoxKeepsFocusAndText) {
    state.hide();
    box.refresh();
    EXPECT_FALSE(in_sight());
    EXPECT_TRUE(box.hasFocus());
    EXPECT_EQ(left, 0);
    EXPECT_EQ(box.text(), u"830"_s);
}

TEST_F(Editing, TheBoxLiesOverItsCellAndFollowsItWhenTheSheetScrolls) {
    EXPECT_EQ(box.geometry(), grid.cell_rect({3, 2}));
    type(u"9"_s);
    for (const int top : {2, 10}) {
        sheet.SetTopLeft(top, 1);
        grid.refresh();
        box.refresh();
        EXPECT_TRUE(top == 2 ? box.geometry() == grid.cell_rect({3, 2}) : !in_sight());
        EXPECT_EQ(box.selectedText(), u""_s) << "what is being typed isn't selected again";
    }
}

TEST_F(Editing, TheListLiesOverItsCellAndTheWheelChoosesNothing) {
    ui::CellCombo list(grid);
    list.addItems({u"公休"_s, u"有休"_s});
    list.lay_over({4, 3}, 1);
    EXPECT_EQ(list.geometry().center(), grid.cell_rect({4, 3}).center());
    EXPECT_EQ(list.width(), grid.cell_rect({4, 3}).width());
    support::turn_wheel(list);
    EXPECT_EQ(list.currentIndex(), 1);
    list.setFocus();
    sheet.SetCursor({4, 3});
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Return}) {
        press(key);
        EXPECT_EQ((Cell{sheet.Row(), sheet.Col()}), (Cell{4, 3})) << "the grid beneath stays: " << key;
        EXPECT_EQ(sheet.TopRow(), 1) << key;
    }
    list.lay_over({4, 3}, 1);
    list.step_aside();
    press(Qt::Key_Up);
    EXPECT_EQ(list.currentIndex(), 1) << "out of sight it chooses nothing";
    EXPECT_TRUE(list.hasFocus());
    list.lay_over({29, 3}, 1);
    EXPECT_TRUE(list.hasFocus()) << "nor does it give the keyboard up where its cell isn't in view";
    list.put_away();
    EXPECT_TRUE(grid.hasFocus());
    EXPECT_FALSE(list.isEnabled());
    EXPECT_FALSE(grid.viewport()->rect().intersects(list.geometry()));
}

} // namespace
