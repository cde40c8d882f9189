#pragma once

// CellEditor: the one input box that is laid over the cell in hand. Grids never edit their own cells.
// It is a plain value, shared by all screens that edit; a widget shows it and a form decides what it holds.
// The contract of every form that uses it: commit, recalculation of the cell left, placement on the new cell.

#include "base/sheet.h"

namespace base {

enum class InputMethod { Off, On };

struct CellEditor {
    QString text;
    Cell cell;               ///< the cell it lies over while visible
    bool visible = false;    ///< out of sight: the grid shows its own cell
    bool active = false;     ///< holds a cell that the text goes back into; a scroll may put it out of sight meanwhile
    bool select_all = false; ///< a fresh placement: the whole text is selected
    InputMethod input_method = InputMethod::Off;

    void place(Cell over, const QString& content, InputMethod method) {
        *this = {content, over, true, true, true, method};
    }
    void hide() { visible = false; } ///< out of sight, the cell still in hand
    void close() { *this = {}; }     ///< the cell is let go
};

} // namespace base
