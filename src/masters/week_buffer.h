#pragma once

// The week in hand of the work type editor: for each weekday ten bands, each with the columns of the band grid. The
// grid shows one day; it is folded into the buffer when the day is left, and nothing reaches the store before the type
// is registered.
//
// A slot is empty, a number (its digits) or a text. The two ways into the buffer differ on purpose: a single day leaves
// the break rules as numbers ("1:30" becomes 130), a day set leaves them as the text of the cell. Both look the same
// when shown again, but a text is saved as its leading number: "1:30" as 1. A day that was shown and left since is
// right.

#include "base/sheet.h"
#include "base/work_week.h"

#include <array>

namespace masters {

/// Columns of the band grid and of the buffer.
namespace band_col {
enum {
    row_number,
    start,
    end,
    category_name,
    category,
    mode_name,
    mode,
    first_rule,
    last_rule = first_rule + 5, ///< three pairs of "対象勤務n" and "加算休時n"
    count
};
} // namespace band_col

class WeekBuffer {
public:
    /// Whether the buffer has a place for a row of the store.
    static bool holds(qint64 weekday, qint64 band) {
        return weekday >= 0 && weekday < base::weekday_count && band >= 1 && band <= base::band_count;
    }

    /// The slot of a band from 1 and a column from `start`.
    QString& operator()(int weekday, int band, int col) { return m_slots[weekday][band - 1][col]; }
    const QString& operator()(int weekday, int band, int col) const { return m_slots[weekday][band - 1][col]; }

    void clear() { *this = {}; }

    /// The grid as the single day: times and break rules as numbers.
    void take_day(const base::Sheet& hyou, int weekday);
    /// The grid onto each day from first to last: start and end as numbers, break rules as the text of the cell.
    void take_day_set(const base::Sheet& hyou, int first, int last);

    /// A band or a day into the grid: time text, and a break rule of "0:00" as an empty cell.
    void show_band(base::Sheet& hyou, int weekday, int band) const;
    void show_day(base::Sheet& hyou, int weekday) const;
    /// Whether the grid holds what show_day() would put there.
    bool is_shown(const base::Sheet& hyou, int weekday) const;

    bool is_blank(int weekday, int band) const;

    /// The text of a break rule that would be saved as another time, as "1:30"; empty if the day has none.
    QString rule_cut_short(int weekday) const;
    /// Makes the break rules of all days numbers, as they'd be if each day had been shown and left.
    void make_rules_numbers();

private:
    using Band = std::array<QString, band_col::count>;
    std::array<std::array<Band, base::band_count>, base::weekday_count> m_slots;
};

} // namespace masters
