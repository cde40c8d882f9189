#pragma once

// The screen that a person sits at, and where programs that run there find one another.

#include <QString>

namespace platform {

/// Whether there is a screen at all.
bool screen_is_there();

/// A window for which the screen can't be reached after all is then seen by nobody, and the program goes on. To be
/// called before QApplication is made.
void go_on_without_screen();

/// A folder that nobody but this person can enter; gone with the session where the system has such a one.
QString own_folder();

/// Where QLocalServer listens for the name in the person's own folder.
QString own_address(const QString& folder, const QString& name);

/// From now on another program may bring its window up for this person's sake.
void let_others_come_up();

} // namespace platform
