#include "intake/moment.h"

#include "base/literals.h"
#include "entry/pasted_text.h"

#include <QStringList>
#include <algorithm>
#include <cstdlib>
#include <utility>

namespace intake {

using namespace base;

namespace {

constexpr int century = 2000;
constexpr qsizetype date_digits = 8;
constexpr qsizetype short_date_digits = 6; ///< of "2611250830"

/// A date taken apart: what stands before the first figure, and the runs of figures.
struct Parts {
    QString before;
    QStringList numbers;
};

bool is_figure(QChar c) {
    return c >= u'0' && c <= u'9';
}

bool parts_a_date(QChar c) {
    return QStringView(u"/-.年月日").contains(c);
}

/// Nothing if something else than a weekday in brackets stands behind or between the figures.
std::optional<Parts> parts_of(QStringView text) {
    Parts parts;
    bool inside = false;
    for (const QChar c : text) {
        if (is_figure(c)) {
            if (!std::exchange(inside, true))
                parts.numbers << QString();
            parts.numbers.last() += c;
        } else if (parts.numbers.isEmpty()) {
            parts.before += c;
        } else if (c == u'(' || c == u' ') {
            break;
        } else if (!parts_a_date(c)) {
            return std::nullopt;
        } else {
            inside = false;
        }
    }
    return parts;
}

/// "20261125", "261125" and "1125" as if they were written with slashes.
void part_figures(QStringList& numbers) {
    if (numbers.size() != 1 || numbers[0].size() % 2 != 0)
        return;
    const QString all = numbers[0];
    const qsizetype year = all.size() - 4;
    if (year < 0 || year > 4)
        return;
    numbers = {all.sliced(year, 2), all.last(2)};
    if (year > 0)
        numbers.prepend(all.first(year));
}

QStringView first_character_of_era(QChar letter) {
    switch (letter.toUpper().unicode()) {
    case u'R':
        return u"令";
    case u'H':
        return u"平";
    case u'S':
        return u"昭";
    case u'T':
        return u"大";
    case u'M':
        return u"明";
    default:
        return {};
    }
}

/// The Western year minus the era year, of "令和", "令" or "R".
std::optional<int> era_offset(const QString& before, const Settings& settings) {
    const QString era = before.trimmed();
    const QString name =
        era.size() == 1 && !first_character_of_era(era[0]).isEmpty() ? first_character_of_era(era[0]).toString() : era;
    for (int i = 0; i < era_count; ++i)
        if (!settings.era_name[i].isEmpty() && settings.era_name[i].startsWith(name))
            return settings.era_offset[i];
    return std::nullopt;
}

QDate nearest(std::initializer_list<QDate> days, QDate to) {
    const auto distance = [&](QDate day) { return day.isValid() ? std::abs(day.daysTo(to)) : qint64(1) << 40; };
    return std::ranges::min(days, {}, distance);
}

QDate without_year(int month, int day, QDate today) {
    return nearest(
        {QDate(today.year(), month, day), QDate(today.year() - 1, month, day), QDate(today.year() + 1, month, day)},
        today);
}

QDate of_two_digits(int year, int month, int day, const Calendar& calendar) {
    const QDate western(century + year, month, day);
    const int offset = calendar.settings.era_offset[0];
    return offset == 0 ? western : nearest({western, QDate(offset + year, month, day)}, calendar.today);
}

QDate date_of(const Parts& parts, const Calendar& calendar) {
    const QStringList& numbers = parts.numbers;
    const int month = numbers[numbers.size() - 2].toInt();
    const int day = numbers.last().toInt();
    if (!parts.before.isEmpty()) {
        const auto offset = era_offset(parts.before, calendar.settings);
        return numbers.size() == 3 && offset ? QDate(*offset + numbers[0].toInt(), month, day) : QDate();
    }
    if (numbers.size() == 2)
        return without_year(month, day, calendar.today);
    const int year = numbers[0].toInt();
    return numbers[0].size() > 2 ? QDate(year, month, day) : of_two_digits(year, month, day, calendar);
}

std::optional<QDate> date_in(const QString& even, const Calendar& calendar) {
    std::optional<Parts> parts = parts_of(even);
    if (!parts)
        return std::nullopt;
    part_figures(parts->numbers);
    if (parts->numbers.size() < 2 || parts->numbers.size() > 3)
        return std::nullopt;
    const QDate date = date_of(*parts, calendar);
    return date.isValid() ? std::optional(date) : std::nullopt;
}

/// The first year of an era is written with a word.
QString even_text(const QString& text) {
    const bool ascii = std::ranges::all_of(text, [](QChar c) { return c.unicode() < 0x80; });
    if (ascii)
        return text.trimmed();
    return text.normalized(QString::NormalizationForm_KC).trimmed().replace(u"元年"_s, u"1年"_s);
}

/// Where the time begins behind a date; nothing if there is only one of the two.
std::optional<qsizetype> start_of_time(const QString& even) {
    const bool figures = std::ranges::all_of(even, is_figure);
    if (figures)
        return even.size() > date_digits ? std::optional(even.size() > 10 ? date_digits : short_date_digits)
                                         : std::nullopt;
    for (qsizetype i = 1; i + 1 < even.size(); ++i) {
        const bool parted = even[i] == u' ' || even[i] == u'日' || (even[i] == u'T' && is_figure(even[i - 1]));
        if (parted && even.indexOf(u'(', i) < 0)
            return i + 1;
        if (even[i] == u')')
            return i + 1;
    }
    return std::nullopt;
}

Moment time_in(const QString& text) {
    const auto [clock, reason] = entry::pasted_time(text, entry::TimeMeaning::Clock);
    if (!clock)
        return {{}, {}, reason};
    return {{}, time_to_minutes(*clock), {}};
}

bool looks_like_date(const QString& even) {
    return std::ranges::any_of(even, parts_a_date) || (even.size() >= 6 && std::ranges::all_of(even, is_figure));
}

const QString no_date = u"日付ではありません"_s;

} // namespace

std::optional<QDate> read_date(const QString& text, const Calendar& calendar) {
    return date_in(even_text(text), calendar);
}

Moment read_moment(const QString& text, const Calendar& calendar) {
    const QString even = even_text(text);
    if (even.isEmpty())
        return {};
    const auto time = start_of_time(even);
    if (!time && !looks_like_date(even))
        return time_in(even);
    const QString day = time ? even.first(*time).chopped(even[*time - 1] == u'T' ? 1 : 0) : even;
    const auto date = date_in(day, calendar);
    if (!date)
        return {{}, {}, no_date};
    Moment moment = time ? time_in(even.sliced(*time)) : Moment{};
    if (moment.reason.isEmpty())
        moment.date = date;
    return moment;
}

} // namespace intake
