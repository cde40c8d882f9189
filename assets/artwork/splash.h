#pragma once

// The picture of the start-up form: the product's name beside a clock and a time card. 480 by 270 logical pixels;
// the lower left corner is kept plain for the version label that the form lays over it.

#include <QtGui/QImage>

namespace artwork {

QImage paint_splash();

} // namespace artwork
