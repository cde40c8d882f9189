#include "entry/company.h"
#include "entry/saving.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

using namespace entry;

namespace {

class Undo : public OpenForm {
protected:
    void undo_all() {
        while (form->can_undo())
            form->undo();
    }

    void redo_all() {
        while (form->can_redo())
            form->redo();
    }

    QStringList texts() const {
        QStringList all;
        for (const base::Sheet* table : {&form->sheet.hyou, &form->sheet.hyou_system, &form->sheet.hyou_day})
            for (int r = 0; r < table->Rows(); ++r)
                all << cells_from(*table, r, 0);
        return all;
    }
};

} // namespace

TEST(UndoHistory, OfMoreStepsThanItHoldsTheOldestCantBeUndone) {
    MonthSheet sheet = month_sheet({});
    UndoHistory history;
    history.begin(sheet, {});
    for (int step = 1; step <= UndoHistory::longest + 5; ++step) {
        sheet.hyou(1, col::remark) = digits(step);
        history.record(sheet, {}, UndoHistory::Step::Own);
    }
    while (history.can_undo())
        history.undo(sheet);
    EXPECT_EQ(sheet.hyou(1, col::remark), u"5"_s);
}

TEST_F(Undo, TwoThousandRandomActsAreUndoneAndDoneAgainAsTheyWere) {
    QRandomGenerator random(7);
    const auto any_cell = [&] {
        return Cell{random.bounded(row::first_day, row::total + 1), random.bounded(col::clock_in, 10)};
    };
    const auto moves = {key::enter, key::left, key::right, key::up, key::down};
    const QList<std::function<void()>> acts{
        [&] { form->hyou_Click(any_cell()); },
        [&] {
            form->hyou_Click({random.bounded(1, 32), random.bounded(2, 4)});
        },
        [&] { type(*form, QString::number(random.bounded(2700))); },
        [&] { form->atai_KeyDown(moves.begin()[random.bounded(5)]); },
        [&] { form->atai_LostFocus(); },
        [&] { form->kyucom_Click(random.bounded(5)); },
        [&] { form->hyou_day_Click(random.bounded(8)), form->hyou_day_KeyPress(u'0' + random.bounded(10)); },
        [&] { form->calculate_all(); },
        [&] {
            form->fill(FillSource(random.bounded(3)), RowRange{random.bounded(34), random.bounded(34)});
        },
        [&] { form->paste(form->preview_paste(u"830\t1730\t\t直行\n9:00\t25:30\t45\n"_s)); },
        [&] { random.bounded(2) == 0 ? form->undo() : form->redo(); },
    };
    for (int round = 0; round < 2000 / UndoHistory::longest; ++round) {
        form->give_up_draft();
        const QStringList start = texts();
        for (int act = 0; act < UndoHistory::longest; ++act)
            acts[random.bounded(acts.size())]();
        form->atai_LostFocus();
        redo_all();
        const QStringList end = texts();
        undo_all();
        ASSERT_EQ(texts(), start) << round;
        redo_all();
        ASSERT_EQ(texts(), end) << round;
    }
}
