#include "masters/master_screen.h"

namespace masters {

void MasterScreen::undo_deletion() {
    if (busy)
        return;
    leave_cell();
    focus = Focus{Control::Toubotan};
    if (deletions.undo())
        rows_are_back();
}

} // namespace masters
