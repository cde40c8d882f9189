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
    /// The row in hand, as far as its boxes differ from what is registered.
    bool mark_unregistered() override;

    void toubotan_GotFocus() { toubotan_lit = true; }
    void toubotan_LostFocus() { toubotan_lit = false; }

protected:
    using MasterScreen::MasterScreen;

    /// What stands in the boxes is what the table holds, or a new row in which nothing was typed.
    void hold_as_registered() { m_registered = atai; }

    void to_atai(int element) { focus = Focus{Control::Atai, element}; }
    void to_toubotan() { focus = Focus{Control::Toubotan}; }

private:
    std::array<QString, 4> m_registered;
};

} // namespace masters
