#include "setup/first_day.h"

#include "base/company_month.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"

namespace setup {

using namespace base;

QString typed_first_day_notice(const QString& typed) {
    if (only_of(typed, "0123456789-"_L1) != typed)
        return u"数字だけを入力します（10日なら 10）"_s;
    if (valid_first_day(Val(typed)) == Val(typed))
        return {};
    const QString shown = typed.isEmpty() ? u"空のとき"_s : typed + u' ';
    return u"%1は 1 日として登録します（1～31 を入力します）"_s.arg(shown);
}

} // namespace setup
