#include "ui/parts/key_codes.h"

#include <algorithm>
#include <iterator>

namespace ui {

namespace {

struct KeyCode {
    int qt_key;
    int code;
};

constexpr KeyCode key_codes[] = {
    {Qt::Key_Return, 13},
    {Qt::Key_Enter, 13},
    {Qt::Key_Escape, 27},
    {Qt::Key_Left, 37},
    {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},
    {Qt::Key_Down, 40},
    {Qt::Key_Delete, 46},
    {Qt::Key_F1, 112},
};

} // namespace

int key_code(int qt_key) {
    const auto at = std::ranges::find(key_codes, qt_key, &KeyCode::qt_key);
    return at == std::end(key_codes) ? 0 : at->code;
}

int key_character(int qt_key, const QString& text) {
    if (qt_key == Qt::Key_Backspace)
        return 8;
    return text.isEmpty() || !text.front().isPrint() ? 0 : text.front().unicode();
}

} // namespace ui
