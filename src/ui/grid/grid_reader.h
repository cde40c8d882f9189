#pragma once

// What a screen reader learns of a grid: its cells with their headings, the cell in hand, and each change of them. Rows
// and columns without a size are left out, so that numbers here count what can be seen; the headings are cells as well.

#include "base/sheet.h"

#include <QAccessible>
#include <memory>
#include <optional>
#include <vector>

namespace ui {

class GridView;

/// Makes every GridView readable through QAccessible. May be called any number of times.
void make_grids_readable();

/// Tells a screen reader what changed in a view's sheet.
class GridTeller {
public:
    using Events = std::vector<std::unique_ptr<QAccessibleEvent>>;

    /// Sends news(). While no screen reader listens it does nothing and keeps nothing.
    void tell(GridView& view);

    /// How the sheet differs from what it was at the call before: a text (TableModelChanged over the block of cells
    /// that holds all changes), another number of rows or columns in sight (a ModelReset), the cursor (Selection of the
    /// cell in hand, and Focus while the view has the keyboard). Empty at the first call.
    Events news(GridView& view);

private:
    std::optional<base::Sheet> m_told;
};

} // namespace ui
