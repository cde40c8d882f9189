#include "masters/field_screen.h"

#include "base/text.h"

namespace masters {

void FieldScreen::atai_Change(int element, const QString& text) {
    atai[element] = base::field_text(text);
}

} // namespace masters
