#pragma once

// The file that the error list of the desktop program shows: a message a line, each in double quotes, in UTF-8.

#include "frame/settings.h"

#include <QString>

namespace exchange {

/// `errmsg.txt` under the local root.
QString error_file_path(const frame::Settings& settings);

/// Appends a line with the time in front and makes the folder if need be. Line ends in the message become blanks.
/// False if it couldn't be written.
bool add_error_line(const QString& path, const QString& message);

} // namespace exchange
