#pragma once

// The made-up companies that the figures are taken on.

#include "base/settings.h"

namespace bench {

inline constexpr int last_month = 202611; ///< yyyymm, the last with attendance

/// Where companies are made, as a name for QTemporaryDir: in memory where the system offers it, since what is measured
/// is work, not the disk's mood.
QString temporary_place();

/// A company of this size in a temporary folder, made on first use and kept until the program ends. The pictures of the
/// pages are there.
base::Settings& company(int employees, int months);

base::Settings& small_company(); ///< 10 employees, 1 month
base::Settings& large_company(); ///< 1,000 employees, 24 months

/// 10,000 employees, each with a work type, and 200 work types of three bands a day; no attendance. The employees stand
/// in three data files. The pictures of the pages are there.
base::Settings& crowded_company();

} // namespace bench
