#include "reports/pages/page_constants.h"

#include "base/literals.h"
#include "base/numbers.h"

#include <array>

namespace reports {

using namespace base;

namespace {

/// By the layout's number less 1.
constexpr std::array layouts{
    PageConstants{.orientation = Orientation::Portrait,
        .table = {.left = 20, .top = 25, .right = 200, .bottom = 284},
        .last_row = 43},
    PageConstants{.orientation = Orientation::Landscape,
        .table = {.left = 20, .top = 25, .right = 285, .bottom = 200},
        .last_row = 29},
    PageConstants{.orientation = Orientation::Portrait,
        .table = {.left = 20, .top = 25, .right = 200, .bottom = 223},
        .last_row = 33},
};

struct PrinterKeys {
    QStringView name;
    QStringView y;
    QStringView x;
};

/// By the printer's number less 1.
constexpr PrinterKeys printer_keys[]{
    {.name = u"プリンター１", .y = u"プリンター１Ｙ", .x = u"プリンター１Ｘ"},
    {.name = u"プリンター２", .y = u"プリンター２Ｙ", .x = u"プリンター２Ｘ"},
    {.name = u"プリンター３", .y = u"プリンター３Ｙ", .x = u"プリンター３Ｘ"},
};

} // namespace

const PageConstants& 印刷設定取得(Layout layout) {
    return layouts[static_cast<size_t>(layout) - 1];
}

PrinterSetting printer_setting(Layout layout, store::SettingTables& tables) {
    store::OpenSettings losystem = tables.open(store::losystem);
    const PrinterKeys& keys = printer_keys[印刷設定取得(layout).printer - 1];
    const QString name = losystem.設定読込(keys.name.toString());
    const QString y = losystem.設定読込(keys.y.toString());
    const QString x = losystem.設定読込(keys.x.toString());
    return {.name = name, .offset = {.x = decimal_val(x), .y = decimal_val(y)}};
}

} // namespace reports
