#pragma once

// ComboBox: a list of master items that is laid over a cell instead of the input box.

#include "base/combo_item.h"
#include "base/sheet.h"

#include <QStringList>
#include <optional>

namespace masters {

/// What is shown in place of a choice that isn't set.
inline constexpr QStringView unset_choice = u"（未設定）";

/// What an item carries: its name and the text of its number.
struct Choice {
    QString name;
    QString number;
};

struct ComboBox {
    QStringList items; ///< in the form of base/combo_item.h, `master_item`
    int index = -1;    ///< the item selected; -1 none
    base::Cell cell;   ///< the cell it lies over while visible
    bool visible = false;
    bool active = false; ///< holds a cell; a scroll may put it out of sight meanwhile

    void place(base::Cell over);
    void close() { visible = active = false; } ///< the cell is let go, the selection stays

    Choice choice(int item) const; ///< of an item that is there

    /// Selects the item with this number. The number 0 and a number not in the list leave the selection as it is.
    void select(qint64 number);

    /// The person's choice of an item: selects it and tells it. Counts only while the list is shown.
    std::optional<Choice> choose(int item);
};

} // namespace masters
