#include "entry/day_kinds.h"

#include "base/combo_item.h"
#include "base/text.h"
#include "entry/cells.h"

namespace entry {

using namespace base;

namespace {

/// The way of choosing no kind.
QString blank_item() {
    return QString(day_kind_item.name_width, QChar(0x3000)) + u'0';
}

bool is_default(qint64 standard_mark) {
    return standard_mark == 1 || standard_mark == 2;
}

struct KindRow {
    qint64 number;
    QString name;
    qint64 holiday_work;
    qint64 standard_mark;
};

void take_kind(MonthSheet& sheet, KindList& kyucom, const KindRow& kind) {
    if (kind.number == 0)
        return;
    kyucom.items << combo_item(day_kind_item, kind.name, {kind.number, kind.holiday_work});
    if (is_default(kind.standard_mark))
        (kind.holiday_work == 0 ? sheet.kind_without_work : sheet.kind_with_work) = {digits(kind.number), kind.name};
}

} // namespace

KindParts kind_parts(const QString& item) {
    return {
        combo_name(day_kind_item, item), combo_number(day_kind_item, item, 0), combo_number(day_kind_item, item, 1)};
}

void load_day_kinds(MonthSheet& sheet, KindList& kyucom, store::Database& database) {
    kyucom.items = {blank_item()};
    sheet.kind_without_work = sheet.kind_with_work = {};
    auto query = database.prepare("select システム番号, 休暇名, 休出, 通常 from kyutype order by システム番号");
    while (query.step()) {
        const store::Row row = query.row();
        take_kind(sheet, kyucom, {row.number(0), Trim(row.text(1)), row.number(2), row.number(3)});
    }
}

} // namespace entry
