#include "base/era.h"

#include "base/company_month.h"
#include "base/literals.h"
#include "base/numbers.h"

namespace base {

namespace {

bool no_date(const QString& text) {
    return text.isEmpty() || text == u"0";
}

QString two_digits(qint64 n) {
    return QString::number(n).rightJustified(2, u'0');
}

/// "10/3" to "1003".
QString month_and_day(const QString& text) {
    return two_digits(Val(text.section(u'/', 0, 0))) + two_digits(Val(text.section(u'/', 1, 1)));
}

struct Ymd {
    qint64 year, month, day;
};

/// The parts of a date number, with the year of the era where eras are shown.
Ymd split(qint64 date, const Settings& settings, std::optional<int> era) {
    return {date / 10000 - (era ? settings.era_offset[*era] : 0), date / 100 % 100, date % 100};
}

std::optional<int> shown_era(const Settings& settings, QDate today) {
    return settings.date_style == 1 ? era_of(settings, today) : std::nullopt;
}

} // namespace

bool era_years(const Settings& settings, QDate today) {
    return shown_era(settings, today).has_value();
}

QString shown_year(QDate day, const Settings& settings, QDate today) {
    return digits(split(date_number(day), settings, shown_era(settings, today)).year);
}

std::optional<int> era_of(const Settings& settings, QDate today) {
    const int day = date_number(today);
    for (int i = 0; i < era_count; ++i)
        if (settings.era_start[i] <= day && day <= settings.era_end[i])
            return i;
    return std::nullopt;
}

QString 和暦西暦変換(const QString& text, const Settings& settings, QDate today) {
    const auto era = era_of(settings, today);
    if (no_date(text) || !era)
        return text;
    const int offset = settings.era_offset[*era];
    const auto slash = text.indexOf(u'/');
    if (slash >= 0)
        return digits(Val(text.first(slash)) + offset) + month_and_day(text.sliced(slash + 1));
    return text.size() < 6 ? text : digits(Val(text.chopped(4)) + offset) + text.right(4);
}

QString 日付表示変換(const QString& date, const Settings& settings, QDate today) {
    const auto era = shown_era(settings, today);
    if (no_date(date) || (settings.date_style == 1 && !era))
        return date;
    if (settings.date_style == 0 && date.contains(u'/'))
        return digits(Val(date.section(u'/', 0, 0))) + u'/' + two_digits(Val(date.section(u'/', 1, 1))) + u'/' +
               two_digits(Val(date.section(u'/', 2, 2)));
    const Ymd d = split(Val(date), settings, era);
    return digits(d.year) + u'/' + digits(d.month) + u'/' + digits(d.day);
}

QString 日付文字変換(const QString& date, const Settings& settings, QDate today) {
    const auto era = shown_era(settings, today);
    if (no_date(date) || (settings.date_style == 1 && !era))
        return date;
    const Ymd d = split(Val(date), settings, era);
    const QString name = era ? settings.era_name[*era] + u' ' : QString();
    return name + digits(d.year) + u"年 "_s + digits(d.month) + u"月 "_s + digits(d.day) + u"日"_s;
}

QString 日付連結(const QString& text, YearForm form) {
    if (!text.contains(u'/'))
        return text;
    const qint64 year = Val(text.section(u'/', 0, 0));
    return (form == YearForm::Era ? two_digits(year) : digits(year)) + month_and_day(text.section(u'/', 1));
}

int western_date_number(const QString& text, const Settings& settings, QDate today) {
    return int_val(
        era_years(settings, today) ? 和暦西暦変換(text, settings, today) : 日付連結(text, YearForm::Western));
}

} // namespace base
