#include "base/combo_item.h"

#include "base/numbers.h"
#include "base/text.h"

namespace base {

QString combo_item(ComboLayout layout, QStringView name, std::initializer_list<qint64> numbers) {
    QString item = left_justified(whole_left(name, layout.name_width), layout.name_width);
    int field = 0;
    for (const qint64 number : numbers) {
        const bool last = ++field == layout.numbers;
        item += last ? digits(number).rightJustified(combo_number_width)
                     : right_justified(digits(number), combo_number_width);
    }
    return item;
}

QString combo_name(ComboLayout layout, QStringView item) {
    return Trim(item.left(layout.name_width));
}

QString combo_number(ComboLayout layout, QStringView item, int field) {
    const QStringView rest = item.mid(layout.name_width + field * combo_number_width);
    return Trim(field + 1 == layout.numbers ? rest : rest.left(combo_number_width));
}

} // namespace base
