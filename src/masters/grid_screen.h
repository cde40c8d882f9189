#pragma once

// GridScreen: a master screen whose work is done in the cells of the grid `hyou`; EditorScreen: one that lays the input
// box `atai` over them. The order is the contract: commit into the cell left, then placement on the new cell.

#include "base/cell_moves.h"
#include "masters/master_screen.h"

namespace masters {

class GridScreen : public MasterScreen {
public:
    base::Sheet hyou;

    /// Places an editor on the cursor's cell, if one belongs there.
    virtual void 入力フォーム() = 0;

    void hyou_Click(base::Cell cell);
    void hyou_Scroll(int top_row, int left_col, int view_width, int view_height); ///< view size in twips

protected:
    using MasterScreen::MasterScreen;

    /// The sheet was scrolled: an open editor follows its cell.
    virtual void follow(int view_width, int view_height) = 0;

    void move_to(base::Cell cell);
    base::Cell cursor() const { return {hyou.Row(), hyou.Col()}; }
};

class EditorScreen : public GridScreen {
public:
    base::CellEditor atai;

    bool atai_KeyDown(int key_code); ///< whether the key moved the cursor; otherwise it is the box's own
    void atai_LostFocus() { leave_cell(); }

protected:
    EditorScreen(frame::Session& session, base::CellRoutes routes) : GridScreen(session), m_routes(routes) {}

    void follow(int view_width, int view_height) override;
    void place_atai(const QString& content, base::InputMethod method);

private:
    base::CellRoutes m_routes;
};

} // namespace masters
