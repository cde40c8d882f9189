#pragma once

// MasterScreen: a screen of a master. What is deleted on it can be had back until it is left, and what was typed and
// isn't registered carries a dot in its sheet.

#include "masters/deletions.h"
#include "masters/screen.h"

namespace masters {

class MasterScreen : public Screen {
public:
    Deletions deletions;

    /// Gives the rows that hold something not registered their dots and takes the others theirs; and words to a choice
    /// that isn't set. A page calls it before it shows the sheets. Gives back whether anything isn't registered.
    virtual bool mark_unregistered() { return false; }

    /// The button beside the line of the deletions.
    void undo_deletion();

protected:
    using Screen::Screen;

    /// What was deleted is in the tables again: the lists take it in; what is typed stays.
    virtual void rows_are_back() {}
};

} // namespace masters
