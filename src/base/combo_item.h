#pragma once

// Combo item text: one fixed-width text that carries a name and the numbers that belong to it. The name stands on the
// left of its field, each number on the right of a field of 10. A list shows the name; what was chosen is read back
// from the places.

#include <QStringView>
#include <initializer_list>

namespace base {

inline constexpr int combo_number_width = 10;

/// How many characters the name has, and how many numbers stand behind it.
struct ComboLayout {
    int name_width;
    int numbers;
};

inline constexpr ComboLayout master_item{40, 1};   ///< on the master screens: name and number
inline constexpr ComboLayout day_kind_item{10, 2}; ///< on the attendance sheet: name, number and `休出`

/// A name longer than its field is cut, never inside a character of two units. The last number is kept whole where it
/// is longer than its field, for it is read to the end of the text.
///   combo_item(master_item, u"残業", {3}) // "残業" and 38 blanks, then 9 blanks and "3"
QString combo_item(ComboLayout layout, QStringView name, std::initializer_list<qint64> numbers);

/// The name without the blanks around it.
QString combo_name(ComboLayout layout, QStringView item);

/// The text of a number without the blanks around it; empty where the item ends before its place.
QString combo_number(ComboLayout layout, QStringView item, int field = 0);

} // namespace base
