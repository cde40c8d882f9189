#include "masters/grid_screen.h"

namespace masters {

void GridScreen::hyou_Click(base::Cell cell) {
    if (!busy)
        move_to(cell);
}

void GridScreen::move_to(base::Cell cell) {
    leave_cell();
    hyou.SetCursor(cell);
    入力フォーム();
}

void GridScreen::hyou_Scroll(int top_row, int left_col, int view_width, int view_height) {
    hyou.SetTopLeft(top_row, left_col);
    follow(view_width, view_height);
}

void EditorScreen::follow(int view_width, int view_height) {
    base::follow_scroll(hyou, atai, view_width, view_height);
}

bool EditorScreen::atai_KeyDown(int key_code) {
    if (!atai.active)
        return false;
    const auto target = base::next_cell(hyou, m_routes, atai.cell, key_code);
    if (target)
        move_to(*target);
    return target.has_value();
}

void EditorScreen::place_atai(const QString& content, base::InputMethod method) {
    atai.place(cursor(), content, method);
    focus = Focus{Control::Atai};
}

} // namespace masters
