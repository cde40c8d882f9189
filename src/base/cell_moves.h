#pragma once

// Where the keys of a cell editor lead, and whether a cell is in view.

#include "base/cell_editor.h"

#include <optional>
#include <span>

namespace base {

/// The columns of a grid that take the editor. The arrows stop at each of `arrows`; Enter walks through `enter` and
/// goes on to the first of them in the next row. Both in order of the columns.
struct CellRoutes {
    std::span<const int> arrows;
    std::span<const int> enter;
};

/// The cell that a key leads to from the given one; nothing if the key leads nowhere or isn't a key that moves.
/// Rows below the fixed ones only.
std::optional<Cell> next_cell(const Sheet& sheet, const CellRoutes& routes, Cell from, int key_code);

/// Whether the cell is wholly among the rows and columns in view, in a view of the given inside size in twips.
bool in_view(const Sheet& sheet, Cell cell, int view_width, int view_height);

/// The sheet was scrolled: an editor (box or list) with a cell in hand shows itself again or goes out of sight, the
/// cell kept.
template <typename Editor>
void follow_scroll(const Sheet& sheet, Editor& editor, int view_width, int view_height) {
    editor.visible = editor.active && in_view(sheet, editor.cell, view_width, view_height);
}

} // namespace base
