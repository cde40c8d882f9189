#pragma once

// The month of one employee as the program reads it from a server and saves it there.

#include "base/company_month.h"
#include "bench/companies.h"
#include "entry/saving.h"

namespace bench {

inline const base::CompanyMonth month_at_hand(last_month / 100, last_month % 100, 1);

entry::MonthSheet opened(const base::Settings& settings, int employee);

/// What a save of all days of the month posts.
QList<entry::ExchangeRow> rows_of_month(const base::Settings& settings, int employee);

/// Posts the rows, applies them and reads the month. False if they weren't applied.
bool saved_and_opened(const base::Settings& settings, const QList<entry::ExchangeRow>& rows, int employee);

} // namespace bench
