#pragma once

// Where the database files lie under the two roots. All paths use "/".

#include "frame/settings.h"

#include <QString>

namespace store {

QString comsys_path(const frame::Settings& settings);
QString allsystem_path(const frame::Settings& settings);
QString rovdata_path(const frame::Settings& settings);
QString losys_path(const frame::Settings& settings);

/// The title under which the desktop programs of all PCs hold a lock together in the data folder, and which a restore
/// takes alone.
inline constexpr QStringView desktop_program = u"rovena";

/// The folder of the data files of all products of the suite.
QString data_folder(const frame::Settings& settings);

/// The folder of the exchange files, and the path of file 1 to 20 in it: hanjyusin01.mdb to hanjyusin20.mdb.
QString exchange_folder(const frame::Settings& settings);
QString exchange_path(const frame::Settings& settings, int number);
inline constexpr int exchange_file_count = 20;

} // namespace store
