#pragma once

// The numbers under which the forms tell keys apart, from the toolkit's own.

#include <QString>

namespace ui {

/// 13, 37 to 40, 46, 112 (Enter, the arrows, Delete, F1); 0 for a key that no form knows.
int key_code(int qt_key);

/// The character that a key types: Backspace is 8, otherwise the first of its text; 0 if it types none.
int key_character(int qt_key, const QString& text);

} // namespace ui
