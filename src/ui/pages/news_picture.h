#pragma once

// Pictures that come from outside: only those of four kinds, of a sensible size, are decoded at all.

#include <QImage>
#include <QString>

namespace ui {

/// The picture in the file, no larger than `room` in either direction; null if it is none, is damaged, or is larger
/// than any picture of the news has a reason to be.
QImage read_news_picture(const QString& path, QSize room);

} // namespace ui
