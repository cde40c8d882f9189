#pragma once

// Text literals: u"出勤"_s is a QString made at compile time.

#include <QString>

namespace base {
using namespace Qt::StringLiterals;
}
