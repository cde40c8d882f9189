#pragma once

// What is said and asked on the terminal.

#include <QString>
#include <optional>

namespace platform {

/// Lets the terminal show what this program prints, before it prints anything. On Windows a terminal has an encoding of
/// its own, elsewhere nothing is done.
void settle_terminal();

/// Asks for a line that isn't shown while it is typed. Nothing if standard input is no terminal: nobody is there to
/// ask. Throws std::runtime_error if the person breaks off (Ctrl-C or the end of input).
std::optional<QString> ask_secret(const QString& prompt);

} // namespace platform
