#include "base/public_holidays.h"

#include "base/company_month.h"
#include "base/literals.h"

#include <algorithm>

namespace base {

namespace {

constexpr int first_year = 2000;
constexpr int last_year = 2099;
constexpr int days_a_week = 7;
constexpr int year_of_new_rules = 2007; ///< a substitute day passes over holidays from then on

template <int day>
int on(int, int) {
    return day;
}

template <int nth>
int monday(int year, int month) {
    const int days_before = (days_a_week + Qt::Monday - QDate(year, month, 1).dayOfWeek()) % days_a_week;
    return 1 + days_before + (nth - 1) * days_a_week;
}

/// The day of an equinox in Japan from 1980 to 2099 by the formula of the almanac 新こよみ便利帳 (暦計算研究会, 1991),
/// in common use since: the equinox of 1980, a tropical year's fraction of a day each year, less the leap days. The
/// day is fixed by the official gazette of the February before.
int equinox(double of_1980, int year) {
    constexpr int base_year = 1980;
    constexpr double drift = 0.242194;
    const int years = year - base_year;
    return int(of_1980 + drift * years) - years / 4;
}

int spring(int year, int) {
    return equinox(20.8431, year);
}

int autumn(int year, int) {
    return equinox(23.2488, year);
}

struct Rule {
    int from;
    int to;
    int month;
    int (*day)(int year, int month);
    QStringView name;
};

constexpr Rule rules[] = {
    {2000, 2099, 1, on<1>, u"元日"},
    {2000, 2099, 1, monday<2>, u"成人の日"},
    {2000, 2099, 2, on<11>, u"建国記念の日"},
    {2020, 2099, 2, on<23>, u"天皇誕生日"},
    {2000, 2099, 3, spring, u"春分の日"},
    {2000, 2006, 4, on<29>, u"みどりの日"},
    {2007, 2099, 4, on<29>, u"昭和の日"},
    {2019, 2019, 5, on<1>, u"天皇の即位の日"},
    {2000, 2099, 5, on<3>, u"憲法記念日"},
    {2007, 2099, 5, on<4>, u"みどりの日"},
    {2000, 2099, 5, on<5>, u"こどもの日"},
    {2000, 2002, 7, on<20>, u"海の日"},
    {2003, 2019, 7, monday<3>, u"海の日"},
    {2020, 2020, 7, on<23>, u"海の日"},
    {2020, 2020, 7, on<24>, u"スポーツの日"},
    {2021, 2021, 7, on<22>, u"海の日"},
    {2021, 2021, 7, on<23>, u"スポーツの日"},
    {2022, 2099, 7, monday<3>, u"海の日"},
    {2016, 2019, 8, on<11>, u"山の日"},
    {2020, 2020, 8, on<10>, u"山の日"},
    {2021, 2021, 8, on<8>, u"山の日"},
    {2022, 2099, 8, on<11>, u"山の日"},
    {2000, 2002, 9, on<15>, u"敬老の日"},
    {2003, 2099, 9, monday<3>, u"敬老の日"},
    {2000, 2099, 9, autumn, u"秋分の日"},
    {2000, 2019, 10, monday<2>, u"体育の日"},
    {2022, 2099, 10, monday<2>, u"スポーツの日"},
    {2019, 2019, 10, on<22>, u"即位礼正殿の儀の行われる日"},
    {2000, 2099, 11, on<3>, u"文化の日"},
    {2000, 2099, 11, on<23>, u"勤労感謝の日"},
    {2000, 2018, 12, on<23>, u"天皇誕生日"},
};

/// A holiday of its own right; empty for the days that only follow from others.
QStringView holiday_by_law(QDate day) {
    const int year = day.year(), month = day.month();
    const auto rule = std::ranges::find_if(rules, [&](const Rule& r) {
        return r.from <= year && year <= r.to && r.month == month && r.day(year, month) == day.day();
    });
    return rule == std::end(rules) ? QStringView() : rule->name;
}

bool is_by_law(QDate day) {
    return !holiday_by_law(day).isEmpty();
}

bool is_sunday(QDate day) {
    return day.dayOfWeek() == Qt::Sunday;
}

/// The first day after a holiday on a Sunday that is no holiday itself; before 2007 only the Monday.
bool is_substitute(QDate day) {
    const int furthest = day.year() < year_of_new_rules ? 1 : days_a_week;
    for (int back = 1; back <= furthest && is_by_law(day.addDays(-back)); ++back)
        if (is_sunday(day.addDays(-back)))
            return true;
    return false;
}

bool is_between(QDate day) {
    const bool may_be = day.year() >= year_of_new_rules || !is_sunday(day);
    return may_be && is_by_law(day.addDays(-1)) && is_by_law(day.addDays(1));
}

} // namespace

QString public_holiday(QDate day) {
    if (!day.isValid() || day.year() < first_year || day.year() > last_year)
        return {};
    if (const QStringView name = holiday_by_law(day); !name.isEmpty())
        return name.toString();
    if (is_substitute(day))
        return u"振替休日"_s;
    return is_between(day) ? u"国民の休日"_s : QString();
}

QString holiday_name(QDate day, const OwnHolidays& own) {
    constexpr int year_place = 10000;
    const int number = date_number(day);
    QStringList names{public_holiday(day), own.value(number % year_place), own.value(number)};
    names.removeAll(QString());
    names.removeDuplicates();
    return names.join(u"・"_s);
}

} // namespace base
