#pragma once

#include <QFont>

namespace ui {

/// Makes the fonts of the folder known to this program, unless the desktop has the ones that the papers are meant for.
void add_shipped_fonts(const QString& folder);

/// The font of every screen: the desktop's own Japanese one, else a free one, at the size that the layouts are made
/// for.
QFont screen_font();

} // namespace ui
