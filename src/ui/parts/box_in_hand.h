#pragma once

// BoxInHand: follows the keyboard of one text box, for the box's own focus events.
//
// A box is reached when the keyboard comes from another control, and once more when a message or another window of this
// program was in front meanwhile: then it is tinted and its text selected. A box is left when the keyboard goes to
// another control; nothing is committed behind a message. A switch to another program and back is neither: the text
// stays as it was being typed, for a selected one would be wiped by the next key.

#include <Qt>
#include <QtGlobal>

class QLineEdit;

namespace ui {

/// Whether a focus that goes for this reason goes to another control: a window that comes before this one, or a list or
/// menu that opens, isn't a step to another control.
bool leaves_control(Qt::FocusReason reason);

/// The ground of a box: tinted while it has the keyboard.
void tint(QLineEdit& box, bool in_hand);

class BoxInHand {
public:
    /// The keyboard came; true if the box is reached by it.
    bool came(Qt::FocusReason reason);
    /// The keyboard went; true if the box is left by it.
    bool went(Qt::FocusReason reason);

private:
    bool m_in_hand = false; ///< reached, and not left nor behind a window of this program since
};

} // namespace ui
