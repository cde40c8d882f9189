#pragma once

// The exchange files: the twenty databases into which saves are posted and from which the exchange manager takes.
// Start-up remakes them, empty. What the manager hasn't taken by then isn't lost: a file that still holds rows is moved
// to the folder of kept files, which the manager applies first, and a file that can't be read is moved there too, under
// an ending of its own, for a person to look at.

#include "base/settings.h"
#include "store/database.h"

#include <QDateTime>
#include <QString>

namespace frame {

/// The folder of the kept files; it is there from the first kept file on.
/// Their names are hanjyusinNN-YYYYMMDD-HHMMSS-zzz.mdb, the time being that of the start that kept them.
QString kept_folder(const base::Settings& settings);

/// What the name of an unreadable kept file ends in, after ".mdb".
inline constexpr QStringView unreadable_ending = u".kowareta";

/// The program that takes the rows, below a server root with "/".
QString manager_file(const QString& server_root);

/// Remakes every exchange file; one that is as new already stays. Whoever has a file open that was replaced, and writes
/// to it afterwards, gets store::Code::Replaced.
/// Throws store::Error: Code::Busy where another program is writing and doesn't end in time, Code::Newer for a file of
/// a later version of the program, and whatever keeps a new file from being written.
void 交換ファイル作成(
    const base::Settings& settings, const QDateTime& now, std::chrono::milliseconds patience = store::default_patience);

} // namespace frame
