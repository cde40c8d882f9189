#include "entry/day_kinds.h"

#include "base/text.h"
#include "entry/cells.h"

namespace entry {

namespace {

constexpr int part_width = 10;

QString blank_item() {
    return QString(part_width, QChar(0x3000)) + u'0';
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
    kyucom.items << kind_item(kind.name, digits(kind.number), digits(kind.holiday_work));
    if (is_default(kind.standard_mark))
        (kind.holiday_work == 0 ? sheet.kind_without_work : sheet.kind_with_work) = {digits(kind.number), kind.name};
}

} // namespace

QString kind_item(const QString& name, const QString& number, const QString& holiday_work) {
    return left_justified(name, part_width) + right_justified(number, part_width) +
           right_justified(holiday_work, part_width);
}

KindParts kind_parts(const QString& item) {
    return {Trim(item.mid(0, part_width)), Trim(item.mid(part_width, part_width)),
        Trim(item.mid(2 * part_width, part_width))};
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
