#include "e2e/road/typed_month.h"

#include "base/literals.h"
#include "base/time.h"
#include "entry/sheet.h"

#include <algorithm>

namespace e2e {

using namespace base;

namespace {

/// The ordinary days, one after the other.
constexpr std::pair<QStringView, QStringView> ordinary[] = {
    {u"830", u"1715"}, {u"825", u"1730"}, {u"840", u"1945"}, {u"830", u"2210"}, {u"655", u"1715"}};

constexpr int second_week = 8;

/// The first day of that weekday from the row on.
TypedDay& day_on(
    QList<TypedDay>& days, const base::Sheet& hyou, QStringView weekday, int from = entry::row::first_day) {
    return *std::ranges::find_if(
        days, [&](const TypedDay& day) { return day.row >= from && hyou(day.row, entry::col::weekday) == weekday; });
}

QList<TypedDay> ordinary_month(const base::Sheet& hyou) {
    QList<TypedDay> days;
    for (int row = entry::row::first_day; row <= entry::row::last_day && !hyou(row, entry::col::day).isEmpty(); ++row) {
        days << TypedDay{.row = row};
        if (u"土日"_s.contains(hyou(row, entry::col::weekday)))
            continue;
        const auto& [in, out] = ordinary[days.size() % std::size(ordinary)];
        days.last().clock_in = in.toString();
        days.last().clock_out = out.toString();
    }
    return days;
}

} // namespace

QList<TypedDay> plan_month(const base::Sheet& hyou, const QString& leave, const QString& sunday_work) {
    QList<TypedDay> days = ordinary_month(hyou);
    day_on(days, hyou, u"月").remark = u"直行：大阪支店"_s;
    TypedDay& night = day_on(days, hyou, u"火", second_week);
    night.clock_in = u"2200"_s;
    night.clock_out = u"700"_s;
    day_on(days, hyou, u"水", second_week).pause = u"45"_s;
    TypedDay& away = day_on(days, hyou, u"木", second_week);
    away = {.row = away.row, .kind = leave};
    TypedDay& sunday = day_on(days, hyou, u"日", second_week);
    sunday.clock_in = u"900"_s;
    sunday.clock_out = u"1500"_s;
    sunday.kind = sunday_work;
    return days;
}

QStringList missing_on_sheet(const base::Sheet& hyou, const QList<TypedDay>& days) {
    QStringList missing;
    for (const TypedDay& day : days) {
        const std::pair<int, QString> expected[] = {{entry::col::clock_in, time_to_text(day.clock_in)},
            {entry::col::clock_out, time_to_text(day.clock_out)}, {entry::col::break_time, time_to_text(day.pause)},
            {entry::col::remark, day.remark}, {entry::col::kind, day.kind}};
        for (const auto& [column, text] : expected)
            if (!text.isEmpty() && hyou(day.row, column) != text)
                missing << u"row %1, %2: typed \"%3\", shown \"%4\""_s.arg(day.row).arg(
                    hyou(entry::row::heading, column), text, hyou(day.row, column));
    }
    return missing;
}

QStringList differences(const QString& name, const base::Sheet& before, const base::Sheet& after, int rows) {
    if (before.Cols() != after.Cols())
        return {u"%1: %2 columns before, %3 after"_s.arg(name).arg(before.Cols()).arg(after.Cols())};
    QStringList found;
    for (int row = 0; row < rows; ++row)
        for (int col = 0; col < before.Cols(); ++col)
            if (before(row, col) != after(row, col))
                found << u"%1 row %2, column %3: \"%4\" before, \"%5\" after"_s.arg(name).arg(row).arg(col).arg(
                    before(row, col), after(row, col));
    return found;
}

} // namespace e2e
