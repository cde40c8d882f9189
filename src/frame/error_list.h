#pragma once

// The file of messages that the exchange side leaves for this PC: a message a line, each in double quotes with the time
// in front, in UTF-8.

#include "base/settings.h"

#include <QString>

namespace frame {

/// `errmsg.txt` under the local root.
QString error_file_path(const base::Settings& settings);

/// From now on a crash of this program leaves its dump beside that file (platform/crash.h).
void leave_dumps(const base::Settings& settings);

/// How many messages wait in it; 0 where there is no file.
int error_count(const base::Settings& settings);

/// Appends the message and makes the folder if need be. Line ends in the message become blanks. False if the file
/// didn't take it: then the line waits in a file beside the exchange files, for write_waiting_errors() or the next
/// message, on whatever PC.
bool add_error(const base::Settings& settings, const QString& message);

/// Appends the lines that wait. False if some still do.
bool write_waiting_errors(const base::Settings& settings);

} // namespace frame
