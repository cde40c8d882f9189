#pragma once

#include <QFont>

namespace ui {

/// The font of every screen: the desktop's own Japanese one, else a free one, at the size that the layouts are made
/// for.
QFont screen_font();

} // namespace ui
