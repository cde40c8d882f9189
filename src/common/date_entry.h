#pragma once

// The short date entry: a date typed as a day alone, as month and day, or in full. One object serves the whole program,
// because an empty field takes the date that was accepted last, on whatever screen that was.

#include "base/settings.h"

#include <QDate>
#include <QString>
#include <optional>

namespace common {

enum class Blank {
    StaysBlank,    ///< an empty field is an answer of its own
    TakesLastDate, ///< an empty field means the date accepted last, or today if there is none
};

class DateEntry {
public:
    /// Holds a reference to the settings: `forward_date`, `date_style` and the era table.
    explicit DateEntry(const base::Settings& settings) : m_settings(settings) {}

    /// The date number that the text stands for; 0 where it makes no date, which leaves the last accepted date as it
    /// was; nothing for a blank text that stays blank.
    ///   one or two digits     a day alone: as a rule the latest such day up to `forward_date` days from today
    ///   three or four         month and day of this year: "1003"
    ///   a full date           yyyymmdd (seven or eight digits); in era years yymmdd (five or six)
    /// Slashes between the parts are taken as well: "2004/10/3".
    std::optional<int> 日付簡単入力(const QString& text, Blank blank, QDate today);

private:
    std::optional<QDate> read(const QString& typed, QDate today) const;
    QDate full_date(const QString& digits, QDate today) const;
    QDate day_alone(int day, QDate today) const;

    const base::Settings& m_settings;
    QDate m_last; ///< invalid until a date was accepted
};

} // namespace common
