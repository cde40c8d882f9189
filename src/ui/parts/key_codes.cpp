#include "ui/parts/key_codes.h"

#include "base/keys.h"

#include <algorithm>
#include <iterator>

namespace ui {

namespace {

struct KeyCode {
    int qt_key;
    int code;
};

constexpr KeyCode key_codes[] = {
    {Qt::Key_Return, base::key::enter},
    {Qt::Key_Enter, base::key::enter},
    {Qt::Key_Escape, base::key::escape},
    {Qt::Key_Left, base::key::left},
    {Qt::Key_Up, base::key::up},
    {Qt::Key_Right, base::key::right},
    {Qt::Key_Down, base::key::down},
    {Qt::Key_Delete, base::key::del},
    {Qt::Key_F1, base::key::f1},
};

} // namespace

int key_code(int qt_key) {
    const auto at = std::ranges::find(key_codes, qt_key, &KeyCode::qt_key);
    return at == std::end(key_codes) ? 0 : at->code;
}

int key_character(int qt_key, const QString& text) {
    if (qt_key == Qt::Key_Backspace)
        return base::key::backspace;
    return text.isEmpty() || !text.front().isPrint() ? 0 : text.front().unicode();
}

} // namespace ui
