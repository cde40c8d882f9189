// What changes many cells of ent_rovena in one act, or takes acts back.

#include "entry/ent_rovena.h"

namespace entry {

bool ent_rovena::can_act() const {
    return !saving && !waiting && !syainsyscd.isEmpty();
}

void ent_rovena::stand_as_before(BesideSheet (UndoHistory::*go)(MonthSheet&)) {
    editors.notice.reset();
    m_draft.bring_back((m_history.*go)(sheet));
    place_again(sheet, editors);
    keep_draft();
}

void ent_rovena::undo() {
    if (!can_act())
        return;
    atai_LostFocus();
    if (m_history.can_undo())
        stand_as_before(&UndoHistory::undo);
}

void ent_rovena::redo() {
    if (!can_act())
        return;
    atai_LostFocus();
    if (m_history.can_redo())
        stand_as_before(&UndoHistory::redo);
}

} // namespace entry
