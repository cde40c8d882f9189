#pragma once

// The file that the error list of the desktop program shows: a message a line, each in double quotes, in UTF-8.

#include "frame/error_list.h"

#include <QString>

namespace exchange {

using frame::error_file_path;

/// Appends a line with the time in front and makes the folder if need be. Line ends in the message become blanks.
/// False if it couldn't be written.
bool add_error_line(const QString& path, const QString& message);

} // namespace exchange
