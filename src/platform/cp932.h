#pragma once

// Japanese text in code page 932, the encoding of files that older programs on Windows write.

#include <QByteArray>
#include <QString>

namespace platform {

/// The text of the bytes. Bytes that are no character of the code page become U+FFFD, one each. Empty gives empty.
QString from_cp932(QByteArrayView bytes);

} // namespace platform
