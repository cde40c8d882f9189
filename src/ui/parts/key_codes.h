#pragma once

// The numbers under which the forms tell keys apart, from the toolkit's own.

#include <QString>

namespace ui {

/// The number in base/keys.h of Enter (either one), an arrow, Delete or F1; 0 for a key that no form knows.
int key_code(int qt_key);

/// The character that a key types: key::backspace for Backspace, otherwise the first of its text; 0 if it types none.
int key_character(int qt_key, const QString& text);

} // namespace ui
