#include "masters/field_screen.h"

#include "base/text.h"

#include <algorithm>

namespace masters {

using namespace base;

namespace {

/// A mark or class that was never touched counts as 0.
bool same(const QString& a, const QString& b) {
    const auto held = [](const QString& text) { return Trim(text) == u"0" ? QString() : Trim(text); };
    return held(a) == held(b);
}

} // namespace

void FieldScreen::atai_Change(int element, const QString& text) {
    atai[element] = field_text(text);
}

/// The list has the key of each row, which is element 0 of the boxes, in its last column.
bool FieldScreen::mark_unregistered() {
    const bool typed = !std::ranges::equal(atai, m_registered, same);
    const int key_col = hyou.Cols() - 1;
    for (int row = hyou.FixedRows(); row < hyou.Rows(); ++row)
        hyou.SetCellDot(row, 0, typed && !atai[0].isEmpty() && hyou(row, key_col) == atai[0]);
    return typed;
}

} // namespace masters
