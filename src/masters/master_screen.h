#pragma once

// MasterScreen: a screen whose rows can be deleted and had back until it is left.

#include "masters/deletions.h"
#include "masters/screen.h"

namespace masters {

class MasterScreen : public Screen {
public:
    Deletions deletions;

    /// The button beside the line of the deletions.
    void undo_deletion();

protected:
    using Screen::Screen;

    /// What was deleted is in the tables again: the lists take it in; what is typed stays.
    virtual void rows_are_back() {}
};

} // namespace masters
