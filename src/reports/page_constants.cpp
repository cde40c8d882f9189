#include "reports/page_constants.h"

#include "base/literals.h"
#include "base/numbers.h"

#include <array>

namespace reports {

using namespace base;

namespace {

constexpr std::array layouts{
    PageConstants{Orientation::Portrait, 25, 284, 20, 200, 2, 43, 1.4},
    PageConstants{Orientation::Landscape, 25, 200, 20, 285, 2, 29, 1.4},
    PageConstants{Orientation::Portrait, 25, 223, 20, 200, 2, 33, 1.4},
};

} // namespace

const PageConstants& 印刷設定取得(Layout layout) {
    return layouts[static_cast<size_t>(layout) - 1];
}

PrinterSetting 印刷設定取得(store::SettingTables& tables) {
    const QString table = u"losystem"_s;
    const QString name = tables.設定読込(table, u"プリンター１"_s, store::Run::Begin);
    const QString y = tables.設定読込(table, u"プリンター１Ｙ"_s, store::Run::Continue);
    const QString x = tables.設定読込(table, u"プリンター１Ｘ"_s, store::Run::End);
    return {name, decimal_val(y), decimal_val(x)};
}

} // namespace reports
