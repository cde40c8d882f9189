#pragma once

// Paths to save to. The dialog belongs to the desktop; what it proposes, and what this PC remembers of it, is told
// here.

#include "platform/host.h"
#include "store/setting_tables.h"

namespace common {

/// Asks for a path. A leading "." of the extension is cut, an empty title reads "ﾌｧｲﾙを開く", and a path that comes
/// back is cut at its first NUL. Nothing if cancelled.
std::optional<QString> ファイル保存ダイアログ(platform::Host& host, platform::SaveDialog record);

/// Asks for the path of a CSV file. The folder of the last file of this report is proposed, or the root of the
/// program's drive where that is gone; what is chosen is remembered in `losystem`. Empty if cancelled.
/// `name`, without an ending, is proposed for the file, with a number where that folder has such a file: "表(2).csv".
/// What no file system takes in a name is left out of it; an empty one proposes none.
QString CSV保存先取得(const base::Settings& settings, platform::Host& host, store::SettingTables& tables,
    const QString& report_number, const QString& name = {});

} // namespace common
