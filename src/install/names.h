#pragma once

// Names for the made-up company's people.

#include <QString>

namespace install {

struct Person {
    QString name;
    QString reading; ///< in full-width katakana
};

/// The person of an index from 0. The first 1,600 have different names; then they come round again.
Person person(int index);

} // namespace install
