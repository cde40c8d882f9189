#pragma once

// The file of messages that the exchange side leaves for this PC: a message a line.

#include "base/settings.h"

#include <QString>

namespace frame {

/// `errmsg.txt` under the local root.
QString error_file_path(const base::Settings& settings);

/// How many messages wait in it; 0 where there is no file.
int error_count(const base::Settings& settings);

} // namespace frame
