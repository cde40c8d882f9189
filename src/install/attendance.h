#pragma once

// The made-up company's days, as they stand in the tables after the clerk has saved each month and the exchange manager
// has applied it.

#include "install/company.h"
#include "install/options.h"

namespace install {

/// Rows of `rovmei`, `kinjisyu`, `kyumei` and `kinnisu` for the sample's months, for a company month that starts on
/// the 1st.
void write_attendance(store::Database& rovdata, const QList<Employee>& staff, const Sample& sample);

} // namespace install
