#pragma once

// One row of the button table as a picture.

#include "button_table.h"

#include <QtGui/QImage>

namespace artwork {

enum class Press { Up, Down };

// The picture at `pixels_a_point` times its logical size, without transparency; up and down have the same size.
// A label too long for its place is set in a smaller size, never cut.
QImage paint_button(const ButtonPicture& button, Press press);

// An empty picture of this logical size.
QImage blank_picture(QSize size, const QColor& back);

// Prepares a painter on such a picture to draw smoothly and in logical pixels.
void use_logical_pixels(QPainter& painter);

} // namespace artwork
