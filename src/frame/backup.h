#pragma once

// The backup on leaving the program: seven generations, one a weekday, of the shared databases, compacted, which then
// take the place of the live contents; and a plain copy of this PC's settings. A generation is one moment of all its
// files: it is made beside the old one, proved, and takes its place whole or not at all. What lies on a server is kept
// as a dump (store/dump.h) where the server's tools are at hand, else as a file like the others.

#include "base/settings.h"
#include "platform/host.h"
#include "store/database.h"

#include <functional>

namespace frame {

struct StepsDone {
    int done = 0;
    int of = 0;
};

/// Told before each step: what is in hand, and how much of the whole is done.
using BackupProgress = std::function<void(const QString& text, StepsDone steps)>;

/// Both lie on the PC that runs the backup, wherever its data lies. The folder of a day is its weekday, 1 (Sunday)
/// to 7.
QString shared_backup_folder(const base::Settings& settings, QDate day);
QString local_backup_folder(const base::Settings& settings, QDate day);

/// Asks whether to back up the shared data, on the PCs that may, and does so; copies this PC's settings in any case.
/// Throws nothing: what went wrong is told, and then the live databases stand as they stood.
/// `patience` is how long another program's write is waited for.
void バックアップ処理(const base::Settings& settings, platform::Host& host, const BackupProgress& progress = {},
    std::chrono::milliseconds patience = store::default_patience);

} // namespace frame
