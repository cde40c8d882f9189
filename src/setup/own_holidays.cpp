#include "setup/own_holidays.h"

#include "base/company_month.h"
#include "base/era.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "common/own_holidays.h"

#include <QRegularExpression>
#include <optional>

namespace setup {

using namespace base;

namespace {

constexpr int longest_run = 31;
constexpr int any_leap_year = 2000; ///< stands for each year
constexpr int year_place = 10000;
constexpr int last_day_of_year = 1231;

struct Typed {
    QDate day;
    bool each_year = false;
};

/// "12/30" is a day of each year, "2026/12/30" one day; nothing for a text that is no date.
std::optional<Typed> typed_day(const QString& text, const base::Settings& settings, QDate today) {
    const qsizetype parts = text.count(u'/') + 1;
    if (parts == 2)
        if (const QDate day = QDate::fromString(u"%1/%2"_s.arg(any_leap_year).arg(text), u"yyyy/M/d"); day.isValid())
            return Typed{day, true};
    if (parts != 3)
        return std::nullopt;
    const QDate day = date_of_number(western_date_number(text, settings, today));
    return day.isValid() ? std::optional(Typed{day, false}) : std::nullopt;
}

int key_of(QDate day, bool each_year) {
    return each_year ? date_number(day) % year_place : date_number(day);
}

/// The last day of a run; one of each year that ends before it begins goes on into the next year.
QDate end_of_run(const Typed& first, const Typed& last) {
    return first.each_year && last.day < first.day ? last.day.addYears(1) : last.day;
}

class Reader {
public:
    Reader(const base::Settings& settings, QDate today) : m_settings(settings), m_today(today) {}

    TypedHolidays whole(const QString& text) && {
        for (const QString& line : text.split(u'\n')) {
            const QString plain = line.normalized(QString::NormalizationForm_KC).replace(QChar(0x301C), u'~').trimmed();
            if (!plain.isEmpty() && !take(plain))
                m_typed.not_understood << line.trimmed();
        }
        return std::move(m_typed);
    }

private:
    bool take(const QString& line) {
        static const QRegularExpression form(u"^([0-9/]+)(?:\\s*[~-]\\s*([0-9/]+))?(?:\\s+(.*))?$"_s);
        const auto match = form.match(line);
        if (!match.hasMatch())
            return false;
        const auto first = typed_day(match.captured(1), m_settings, m_today);
        const auto last = match.captured(2).isEmpty() ? first : typed_day(match.captured(2), m_settings, m_today);
        return first && last && first->each_year == last->each_year && add(*first, *last, match.captured(3));
    }

    bool add(const Typed& first, const Typed& last, const QString& name) {
        const qint64 days = first.day.daysTo(end_of_run(first, last)) + 1;
        if (days < 1 || days > longest_run)
            return false;
        for (qint64 i = 0; i < days; ++i)
            m_typed.days.insert(
                key_of(first.day.addDays(i), first.each_year), name.isEmpty() ? u"休業日"_s : field_text(name));
        return true;
    }

    const base::Settings& m_settings;
    QDate m_today;
    TypedHolidays m_typed;
};

QDate date_of_key(int key) {
    return date_of_number(key > last_day_of_year ? key : any_leap_year * year_place + key);
}

QString shown(int key, const base::Settings& settings, QDate today) {
    if (key <= last_day_of_year)
        return u"%1/%2"_s.arg(key / 100).arg(key % 100);
    return 日付表示変換(digits(key), settings, today);
}

} // namespace

TypedHolidays read_holidays(const QString& text, const base::Settings& settings, QDate today) {
    return Reader(settings, today).whole(text);
}

QString holiday_lines(const QMap<int, QString>& days, const base::Settings& settings, QDate today) {
    QString lines;
    for (auto first = days.begin(); first != days.end();) {
        auto last = first;
        auto next = std::next(first);
        while (next != days.end() && next.value() == first.value() &&
               date_of_key(last.key()).addDays(1) == date_of_key(next.key()) &&
               date_of_key(first.key()).daysTo(date_of_key(next.key())) < longest_run)
            last = next++;
        lines += shown(first.key(), settings, today);
        if (last != first)
            lines += u"～"_s + shown(last.key(), settings, today);
        lines += u' ' + first.value() + u'\n';
        first = next;
    }
    return lines;
}

QString own_holidays::stored_lines() const {
    return holiday_lines(common::read_own_holidays(m_session.tables), m_session.settings, m_session.host.now().date());
}

void own_holidays::Form_Load() {
    lines = stored_lines();
}

bool own_holidays::register_Click() {
    const TypedHolidays typed = read_holidays(lines, m_session.settings, m_session.host.now().date());
    if (!typed.not_understood.isEmpty()) {
        msglab = u"読み取れない行があります。「%1」"_s.arg(typed.not_understood.join(u"」「"_s));
        return false;
    }
    common::keep_own_holidays(m_session.tables, typed.days);
    m_session.settings.own_holidays = typed.days;
    return true;
}

bool own_holidays::may_leave() const {
    return lines == stored_lines() || m_session.host.ask(u"入力した休日を登録せずに閉じますか？"_s, caption.toString(),
                                          platform::Buttons::YesNo) == platform::Answer::Yes;
}

} // namespace setup
