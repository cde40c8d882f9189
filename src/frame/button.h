#pragma once

// A picture button as data: what it is called and the two bitmaps it is made of. The names are spelled as the files
// are, upper and lower case included.

#include "base/settings.h"

#include <QStringView>

namespace frame {

struct Button {
    int index;           ///< in the screen's array of buttons
    QStringView label;   ///< what its bitmap reads, for those who can't see it
    QStringView up;      ///< bitmap at rest
    QStringView pressed; ///< bitmap while it is pressed
};

/// Closes a page; every screen has it.
inline constexpr Button endbotan{0, u"閉じる", u"zen_end.BMP", u"zen_end_b.BMP"};

/// Opens the help page of the screen; every screen has it too.
inline constexpr Button help_button{0, u"ヘルプ", u"zen_help.BMP", u"zen_help_b.BMP"};

/// The folder of the buttons' bitmaps on this PC, with "/" at its end.
QString picture_folder(const base::Settings& settings);

/// The picture of the start-up form, and that of the program in window titles.
QString splash_path(const base::Settings& settings);
QString program_icon_path(const base::Settings& settings);

} // namespace frame
