#pragma once

// Help is a folder of HTML files below the program's own folder, opened in the desktop's browser.

#include "base/settings.h"
#include "platform/host.h"

namespace frame {

/// Opens the help page of a form; the report screen `rov_01` has one for each report number. A form without a page of
/// its own opens the index. An empty form name opens nothing. Whether the desktop opened it isn't looked at.
void ヘルプ表示(const base::Settings& settings, platform::Host& host, const QString& form, int report_no = 0);

/// The address of a page: the folder's path behind "file://localhost/", with "/" only.
///   "C:\Program Files\meridan\qn", "index.html"
///   // "file://localhost/C:/Program Files/meridan/qn/rovena100/help/index.html"
/// Off Windows the path's own leading "/" isn't doubled, and what an address can't hold is written as a browser reads
/// it.
QString help_address(const base::Settings& settings, const QString& page);

inline constexpr QStringView help_index = u"index.html";

} // namespace frame
