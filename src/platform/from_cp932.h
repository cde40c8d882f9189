#pragma once

// Reading code page 932, the text of Japanese Windows programs (cp932.h writes it).

#include <QByteArray>
#include <QString>

namespace platform {

/// The text of the bytes. Bytes that are no character of the code page become U+FFFD, one each. Empty gives empty.
QString from_cp932(QByteArrayView bytes);

} // namespace platform
