#pragma once

// The kept files: what stood in an exchange file when it was remade, until the manager has applied it. They lie in a
// folder of their own under the names hanjyusinNN-YYYYMMDD-HHMMSS-zzz.mdb; a file that couldn't be read has an ending
// of its own behind that, and waits there for a person. The time in the name is that of the start that kept the file,
// or a later one: the names tell which rows are newer, whatever the clocks of the PCs say.

#include "base/settings.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

namespace frame {

/// The folder of the kept files; it is there from the first kept file on.
QString kept_folder(const base::Settings& settings);

/// What the name of an unreadable kept file ends in, after ".mdb".
inline constexpr QStringView unreadable_ending = u".kowareta";

/// The paths of the kept files that the manager applies, the oldest first. Names that no start gave come before all
/// others.
QStringList kept_files(const base::Settings& settings);

/// The path under which the exchange file is to be kept now: its name is greater than that of every kept file that is
/// there, unreadable ones included.
QString new_kept_path(
    const base::Settings& settings, const QString& exchange_file, const QDateTime& now, QStringView ending = {});

} // namespace frame
