#pragma once

// Where the side programs find the tree they work on.

#include <QString>
#include <optional>

namespace exchange {

/// The server root that the folder lies in: the nearest folder upwards that holds "comdata/data"; nothing if none does.
std::optional<QString> server_root_above(const QString& folder);

} // namespace exchange
