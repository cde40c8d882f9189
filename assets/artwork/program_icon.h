#pragma once

// The icon of the program on desktops and in window titles: a clock over a time card, with a transparent ground.

#include <QtGui/QImage>

namespace artwork {

// A square picture of `side` pixels; at small sides the finer marks are left out.
QImage paint_program_icon(int side);

// What stands beside the words of the Windows installer's first and last page: 164 x 314 pixels, with the icon.
QImage paint_installer_side();

} // namespace artwork
