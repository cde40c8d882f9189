#include "masters/combo_box.h"

#include "base/numbers.h"

namespace masters {

using namespace base;

void ComboBox::place(Cell over) {
    cell = over;
    visible = active = true;
}

Choice ComboBox::choice(int item) const {
    return {combo_name(master_item, items[item]), combo_number(master_item, items[item])};
}

void ComboBox::select(qint64 number) {
    for (int item = 0; number != 0 && item < items.size(); ++item) {
        if (Val(combo_number(master_item, items[item])) != number)
            continue;
        index = item;
        return;
    }
}

std::optional<Choice> ComboBox::choose(int item) {
    if (!visible || item < 0 || item >= items.size())
        return std::nullopt;
    index = item;
    return choice(item);
}

} // namespace masters
