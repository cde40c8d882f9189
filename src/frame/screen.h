#pragma once

// Screen: what the screens of masters and settings share. Every button first takes the keyboard to the hidden
// `toubotan`, so that a cell in edit is committed; button 0 leaves for the menu, the others belong to the screen.
//
// For the page:
// - sheets are shown as they stand: sizes, looks, cursor, first row and column in view.
// - an editor out of sight (`visible` false) while `active` keeps the keyboard: it is moved off the view, not hidden.
// - a widget that takes or loses the keyboard reports it by the act named after it; acts that find nothing to do do
//   nothing, and an act that moves on commits by itself, whatever the order of the widgets' events.
// - `focus` is a wish: move the keyboard there and clear it. `close_wanted`: the page closes and the menu comes back.
// - an operation or act that reads or writes the tables throws store::Error; after one that writes, what was typed
//   is still on the screen, so that it can be tried again.
// - while `busy` the interface may be given time inside an act: take no input, don't destroy the form.

#include "base/sheet.h"
#include "frame/session.h"

#include <optional>

namespace frame {

enum class Control { Atai, AtaiCom, Toubotan };

/// Where the keyboard should go next.
struct Focus {
    Control control;
    int element = 0; ///< of the control array
    friend bool operator==(const Focus&, const Focus&) = default;
};

class Screen {
public:
    virtual ~Screen() = default;
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    std::optional<Focus> focus;
    bool close_wanted = false;
    bool busy = false;

    /// The cell in edit goes back into the grid; nothing if none is in edit. Throws where it is saved by that and can't
    /// be: it is still in edit then.
    virtual void leave_cell() {}
    /// Leaves the cell first; if that throws, nothing else is done.
    void botan_Click(int element);

protected:
    explicit Screen(Session& session) : m_session(session) {}

    /// What a button other than 0 does once the cell is committed.
    virtual void press(int element) = 0;

    store::Database open_rovdata() const;

    Session& m_session;
};

/// Marks the screen busy for as long as it lives.
class Busy {
public:
    explicit Busy(Screen& screen) : m_screen(screen) { m_screen.busy = true; }
    ~Busy() { m_screen.busy = false; }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

private:
    Screen& m_screen;
};

} // namespace frame
