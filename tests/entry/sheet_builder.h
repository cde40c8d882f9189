#pragma once

// Month sheets made by hand, without a store.

#include "base/literals.h"
#include "entry/calculation.h"
#include "entry/cells.h"
#include "entry/layout.h"
#include "support/printed.h"

namespace entry {

using namespace base;

struct Rule {
    int threshold;
    int pause;
};

inline Band band(int category, int start, int end, std::initializer_list<Rule> rules = {}, bool from_inside = false) {
    Band made{.start = time_to_minutes(ClockNumber{start}),
        .end = end_minutes(ClockNumber{start}, ClockNumber{end}),
        .counts_from_inside = from_inside,
        .category = category};
    size_t place = 0;
    for (const Rule& rule : rules)
        made.rules[place++] = {time_to_minutes(ClockNumber{rule.threshold}), time_to_minutes(ClockNumber{rule.pause})};
    return made;
}

/// A sheet with one column and one count for each category, and the kinds 有休 (k1), 公休 (k2, the default without
/// work), 出勤 (s3, the default with work) and 休日出勤 (s4) in the strip. March 2004 begins on a Monday.
inline MonthSheet month_sheet(const QList<int>& categories, int month = 3, int start_day = 1) {
    MonthSheet sheet;
    書式設定(sheet, CompanyMonth(2004, month, start_day));
    書式設定_日(sheet);
    sheet.kind_without_work = {u"2"_s, u"公休"_s};
    sheet.kind_with_work = {u"3"_s, u"出勤"_s};
    const QStringList tags{u"s3"_s, u"s4"_s, u"k1"_s, u"k2"_s};
    const int strip_kinds = static_cast<int>(tags.size());
    sheet.hyou_day.SetCols(strip::first_kind + strip_kinds + static_cast<int>(categories.size()));
    sheet.hyou.SetCols(col::first_category + static_cast<int>(categories.size()));
    for (int i = 0; i < strip_kinds; ++i)
        sheet.hyou_day(strip::tag, strip::first_kind + i) = tags[i];
    for (int i = 0; i < categories.size(); ++i) {
        sheet.hyou(row::category_number, col::first_category + i) = digits(categories[i]);
        sheet.hyou_day(strip::tag, strip::first_kind + strip_kinds + i) = digits(categories[i]);
    }
    return sheet;
}

inline void every_day(MonthSheet& sheet, int number, const Band& made) {
    for (auto& weekday : sheet.band_table)
        weekday[number] = made;
}

/// Lays texts that are parted by "|" into the cells of a row from one on.
inline void lay(base::Sheet& hyou, base::Cell from, const QString& texts) {
    for (const QString& text : texts.split(u'|'))
        hyou(from.row, from.col++) = text;
}

inline void calculate(MonthSheet& sheet, int r, const QString& in, const QString& out) {
    lay(sheet.hyou, {r, col::clock_in}, in + u'|' + out);
    sheet.entry_cell = {r, col::clock_out};
    出勤集計処理(sheet, r);
}

inline QString count_under(const MonthSheet& sheet, const QString& tag) {
    for (int column = 0; column < sheet.hyou_day.Cols(); ++column)
        if (sheet.hyou_day(strip::tag, column) == tag)
            return sheet.hyou_day(strip::count, column);
    return u"no column "_s + tag;
}

/// So many columns from one on, or all, as they stand, parted by "|".
inline QString cells_from(const base::Sheet& hyou, int r, int first, int count = 1000) {
    QStringList cells;
    for (int column = first; column < std::min(hyou.Cols(), first + count); ++column)
        cells << hyou(r, column);
    return cells.join(u'|');
}

} // namespace entry
