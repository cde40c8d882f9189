#pragma once

// Where the database files lie under the two roots. All paths use "/". Only kept_name() looks at the disk: the others
// say where a file belongs, whether it is there or not.

#include "base/settings.h"

#include <QDateTime>
#include <QString>

namespace store {

QString comsys_path(const base::Settings& settings);
QString allsystem_path(const base::Settings& settings);
QString rovdata_path(const base::Settings& settings);
QString losys_path(const base::Settings& settings);
QString drafts_path(const base::Settings& settings); ///< beside losys.mdb; made with the first draft

/// A path in the program's own folder below a root: `below` begins without "/", and is empty for the folder itself.
///   own_path(settings, settings.local_root, u"help") // ".../rovena100/help"
QString own_path(const base::Settings& settings, const QString& root, QStringView below);

/// The title under which the exchange manager shows its window and holds its lock in the exchange folder: who asks
/// whether it is at work asks for this.
inline constexpr QStringView manager_program = u"jyusinkanri";

/// The title under which the desktop programs of all PCs hold a lock together in the data folder, and which a restore
/// takes alone.
inline constexpr QStringView desktop_program = u"rovena";

/// The title under which whoever makes or remakes the exchange files holds a lock in the data folder.
inline constexpr QStringView exchange_maker = u"hanjyusin";

/// The folder of the data files of all products of the suite.
QString data_folder(const base::Settings& settings);

/// Beside rovdata.mdb; made when the first month is closed.
QString closings_path(const base::Settings& settings);

/// Beside rovdata.mdb, and no database: which PC has which month open. Made when the first month is opened.
QString open_months_path(const base::Settings& settings);

/// The folder of the exchange files, and the path of file 1 to 20 in it: hanjyusin01.mdb to hanjyusin20.mdb.
QString exchange_folder(const base::Settings& settings);
QString exchange_path(const base::Settings& settings, int number);
inline constexpr int exchange_file_count = 20;

/// The exchange file into which saves post.
inline constexpr int posting_file = 1;
inline constexpr QStringView posting_file_name = u"hanjyusin01.mdb";

/// The engine's journal of a database: what a write that was cut short has to be undone with.
QString journal_of(const QString& database);

/// The name beside a database under which it is put away: its own with the time, NAME-YYYYMMDD-HHMMSS.mdb. Neither this
/// name nor that of its journal is in use: a time that is taken gives way to the next second.
QString kept_name(const QString& database, QDateTime time);

} // namespace store
