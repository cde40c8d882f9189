#pragma once

// Code page 932, the text of Japanese Windows programs. A character that it lacks is written as the one that stands for
// it as a rule (the wave dash U+301C as the full-width tilde, the minus U+2212 as the full-width one, and so on), and
// as
// "?" where there is none.

#include <QByteArray>
#include <QString>

namespace platform {

/// Whether something of a text got lost.
enum class Fit { Whole, Replaced };

/// Appends the text in code page 932.
Fit append_cp932(QByteArray& bytes, QStringView text);

} // namespace platform
