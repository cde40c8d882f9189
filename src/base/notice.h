#pragma once

// What a screen made of what was typed, in words: said beside the place where it was typed, and kept in a line until
// the next key.

#include <QString>

namespace base {

template <typename Place>
struct Notice {
    Place place;
    QString text;
};

} // namespace base
