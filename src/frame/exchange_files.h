#pragma once

// The exchange files: the twenty databases into which saves are posted and from which the exchange manager takes.
// Start-up remakes them, empty. What the manager hasn't taken by then isn't lost: the rows of a file are carried into a
// kept file, which the manager applies first, and only then deleted; a file that can't be read is copied there too, for
// a person to look at.
//
// A file is remade in place, within a lock that keeps other writers out. It is never renamed and never replaced: others
// may have it open, and the engine finds a journal by the file's name. Whoever had the old file open would take the
// journal of the next save for one that was left of his own, and roll it back into a file that it doesn't belong to.

// The one into which saves post may lie on a data server. It stays as it is then, for all PCs.

#include "base/settings.h"
#include "store/database.h"

#include <QDateTime>
#include <QString>
#include <functional>

namespace frame {

/// The program that takes the rows, below a server root with "/".
QString manager_file(const QString& server_root);

/// Remakes every exchange file; one that is as new already stays. Saves, managers and other starts may go on meanwhile:
/// they wait, and go on in the same file. `trouble` is told of each file that couldn't be read, once it is kept and
/// before it is emptied; a kill in between keeps and tells it again. It isn't to wait for a person.
/// Throws store::Error: Code::Busy where another program is writing and doesn't end in time, Code::Newer for a file of
/// a later version of the program, and whatever keeps a file from being written; platform::LockError where starts can't
/// keep out of each other's way. Files before the one that fails are remade then, and no row is lost.
void 交換ファイル作成(const base::Settings& settings, const QDateTime& now,
    const std::function<void(const QString& message)>& trouble,
    std::chrono::milliseconds patience = store::default_patience);

} // namespace frame
