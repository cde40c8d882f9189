#include "reports/pages/page_constants.h"

#include "base/literals.h"
#include "base/numbers.h"

#include <array>

namespace reports {

using namespace base;

namespace {

constexpr std::array layouts{
    PageConstants{Orientation::Portrait, 25, 284, 20, 200, 2, 43, 1.4, 1},
    PageConstants{Orientation::Landscape, 25, 200, 20, 285, 2, 29, 1.4, 1},
    PageConstants{Orientation::Portrait, 25, 223, 20, 200, 2, 33, 1.4, 1},
};

struct PrinterKeys {
    QStringView name;
    QStringView y;
    QStringView x;
};

/// By the printer's number less 1.
constexpr PrinterKeys printer_keys[]{
    {u"プリンター１", u"プリンター１Ｙ", u"プリンター１Ｘ"},
    {u"プリンター２", u"プリンター２Ｙ", u"プリンター２Ｘ"},
    {u"プリンター３", u"プリンター３Ｙ", u"プリンター３Ｘ"},
};

} // namespace

const PageConstants& 印刷設定取得(Layout layout) {
    return layouts[static_cast<size_t>(layout) - 1];
}

PrinterSetting 印刷設定取得(Layout layout, store::SettingTables& tables) {
    const QString table = u"losystem"_s;
    const PrinterKeys& keys = printer_keys[印刷設定取得(layout).printer - 1];
    const QString name = tables.設定読込(table, keys.name.toString(), store::Run::Begin);
    const QString y = tables.設定読込(table, keys.y.toString(), store::Run::Continue);
    const QString x = tables.設定読込(table, keys.x.toString(), store::Run::End);
    return {name, decimal_val(y), decimal_val(x)};
}

} // namespace reports
