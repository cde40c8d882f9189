#pragma once

// Undo and redo of the month sheet: its state after each act of the person, as values. An act is one step, however many
// cells it changed; the cell in hand is part of the state, so that undoing leads back to the cell that was typed in.
// Nothing is calculated on the way back: what stood, stands again.

#include "entry/merge.h"

#include <QSet>
#include <deque>

namespace entry {

class UndoHistory {
public:
    static constexpr int longest = 200; ///< steps; of more, the oldest can't be undone any longer

    /// A month was read: its state is the one that undoing ends at. What was recorded before is gone.
    void begin(const MonthSheet& sheet, const BesideSheet& beside);

    /// No month is on the sheet.
    void end();

    enum class Step {
        Own,   ///< an act by itself
        Joins, ///< what followed from the act before, like the calculation of a day that was left: one step with it
    };

    /// An act may have changed the sheet. If it did, that is a step, and what was undone can't be done again.
    /// Gives back whether it did.
    bool record(const MonthSheet& sheet, const BesideSheet& beside, Step step);

    /// A count of this column of the strip was typed: all that is typed on a visit of its box is one step.
    void record_count(const MonthSheet& sheet, const BesideSheet& beside, int column);

    /// A box of the strip was come to.
    void begin_count();

    /// The marked days were posted: each of them is marked "1" at least in every state that is brought back from now
    /// on, as the tables hold the posted one. What was decided by then is to be decided no more.
    void posted(const MonthSheet& sheet, const BesideSheet& beside);

    bool can_undo() const { return m_now > 0; }
    bool can_redo() const { return m_now + 1 < m_states.size(); }

    /// Bring back the state before the last step, or the one after the step undone last, and give back what belongs
    /// beside the sheet then. Only if there is one. A step that is seen nowhere, as one that marked a day whose texts
    /// stayed, goes along with the next one.
    BesideSheet undo(MonthSheet& sheet);
    BesideSheet redo(MonthSheet& sheet);

private:
    struct State {
        QStringList texts; ///< of all cells, shared with the sheet and with the states beside
        qsizetype seen;    ///< so many of the texts, from the first on, are those of cells that are seen
        BesideSheet beside;
        base::Cell entry_cell;
        std::optional<base::Cell> pending_cell;
        std::optional<int> count; ///< column of the strip whose typing led here, while its box is visited
    };
    static bool look_alike(const State& a, const State& b);
    static State state_of(const MonthSheet& sheet, const BesideSheet& beside);
    BesideSheet go(MonthSheet& sheet, size_t to);

    std::deque<State> m_states; ///< from the oldest on; empty while no month is on the sheet
    size_t m_now = 0;           ///< the state that stands
    QSet<int> m_posted;         ///< rows
};

} // namespace entry
