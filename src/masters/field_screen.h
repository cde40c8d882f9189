#pragma once

// FieldScreen: a master screen that edits one row in four text boxes beside a list. `toubotan` stands for the
// registration button when it is reached by keyboard.

#include "masters/master_screen.h"

#include <array>

namespace masters {

class FieldScreen : public MasterScreen {
public:
    base::Sheet hyou;
    std::array<QString, 4> atai;
    bool toubotan_lit = false; ///< button 1 shows its "_b" picture

    virtual void atai_Change(int element, const QString& text); ///< held at the 255 characters of a field
    virtual void atai_LostFocus(int) {}
    void toubotan_GotFocus() { toubotan_lit = true; }
    void toubotan_LostFocus() { toubotan_lit = false; }

protected:
    using MasterScreen::MasterScreen;

    void to_atai(int element) { focus = Focus{Control::Atai, element}; }
    void to_toubotan() { focus = Focus{Control::Toubotan}; }
};

} // namespace masters
