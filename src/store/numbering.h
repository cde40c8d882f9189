#pragma once

// System numbers and the lookup of one master row.

#include "base/settings.h"
#include "store/database.h"

#include <array>

namespace store {

/// The counters.
inline constexpr QStringView counter_names[]{u"勤務種類", u"勤務時間", u"休暇種類", u"社員番号"};

/// The highest number of the counter that `rovdata` holds, also in attendance that names what was deleted; 0 if none or
/// if the counter isn't one of the above. Reads the whole attendance.
qint64 highest_in_use(Database& rovdata, QStringView counter_name);

/// The next number of a counter: 1 for a new counter, then one more for each call. Read and write are one transaction,
/// so that two programs never get one number. A number not used is lost. A counter whose next number is in use, in a
/// master or by an employee's attendance, is behind the tables, as a `comsys.mdb` of an older day is: it goes on behind
/// the highest number in use. Throws store::Error, Code::Busy above all, and no number is drawn then.
int 採番(const base::Settings& settings, const QString& counter_name);

/// Fields of the first row of a master in `comsys.mdb` whose key field holds the trimmed key value, each at the place
/// of its name, and empty where that is; all empty if there is no such row, or if table, key field, key value or all
/// field names are empty. A table or field the file doesn't know throws Code::Misuse.
std::array<QString, 7> マスター項目取得(const base::Settings& settings, const QString& table, const QString& key_field,
    const QString& key_value, const std::array<QString, 7>& fields);

} // namespace store
