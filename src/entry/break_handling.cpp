#include "entry/break_handling.h"

#include "base/literals.h"
#include "base/numbers.h"

namespace entry {

using namespace base;

namespace {

const QString key = u"休憩時間処理"_s;

} // namespace

BreakHandling break_handling(store::SettingTables& tables) {
    return Val(tables.設定読込(store::losystem, key)) == 0 ? BreakHandling::Included : BreakHandling::Deducted;
}

void keep_break_handling(store::SettingTables& tables, BreakHandling handling) {
    tables.設定書込(store::losystem, key, digits(int(handling)));
}

} // namespace entry
