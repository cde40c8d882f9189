#pragma once

// System numbers and the lookup of one master row.

#include "frame/settings.h"
#include "store/database.h"

#include <array>

namespace store {

/// The next number of a counter ("勤務種類", "勤務時間", "休暇種類", "社員番号"): 1 for a new counter, then one more
/// for each call. Read and write are one transaction, so that two programs never get one number. A number not used is
/// lost.
int 採番(const frame::Settings& settings, const QString& counter_name);

/// Fields of the first row of a master in `comsys.mdb` whose key field holds the trimmed key value; all empty if there
/// is none, or if table, key field, key value or all field names are empty. A table or field the file doesn't know
/// throws Code::Misuse.
std::array<QString, 7> マスター項目取得(const frame::Settings& settings, const QString& table, const QString& key_field,
    const QString& key_value, const std::array<QString, 7>& fields);

} // namespace store
